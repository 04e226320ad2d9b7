#!/bin/sh
# judge.sh READINGS VERDICTS: a line "channel,verdict" for each line "channel,volt" behind the title line. A value above
# the one in the environment variable LIMIT is too high. Run by external_program.mac.
exec awk -F, -v limit="${LIMIT:?}" 'NR > 1 { print $1 "," ($2 > limit + 0 ? "too high" : "good") }' "$1" >"$2"
