#include <string>

#include "formats/Formats.h"
#include "formats/RegisterPicture.h"
#include "formats/RegisterText.h"
#include "text/Markup.h"

namespace macroctl {

namespace {

const char kStyle[] = R"html(<style>
:root { color-scheme: light dark; --line: #8886; --own: #4a90d966; }
body { font: 15px/1.4 system-ui, sans-serif; margin: 1.5rem; }
header { position: sticky; top: 0; background: Canvas; padding: .5rem 0; }
input { font: inherit; width: min(30rem, 90%); padding: .3rem .5rem; }
table { border-collapse: collapse; width: 100%; margin-bottom: 2rem; }
th, td { text-align: left; vertical-align: top; padding: .35rem .7rem; border-bottom: 1px solid var(--line); }
td.code { font-family: ui-monospace, monospace; white-space: nowrap; }
td.text { white-space: pre-line; min-width: 12rem; }
svg { display: block; font: 11px ui-monospace, monospace; }
svg text { fill: currentColor; text-anchor: middle; }
svg .address { text-anchor: end; }
svg .position { font-size: 9px; opacity: .6; }
svg rect { fill: none; stroke: var(--line); }
svg rect.own { fill: var(--own); }
</style>
)html";

/// A row is found by all of its words but the numbers in its picture.
const char kSearch[] = R"html(<script>
const rows = [...document.querySelectorAll("tbody tr")].map(row => ({
  row,
  text: [...row.querySelectorAll("td:not(.bits)")].map(cell => cell.textContent).join("\n").toLowerCase(),
}));
const count = document.getElementById("count");
function search(words) {
  let shown = 0;
  for (const { row, text } of rows) {
    row.hidden = !words.every(word => text.includes(word));
    if (!row.hidden) ++shown;
  }
  count.textContent = shown + " of " + rows.length;
}
const field = document.getElementById("search");
field.addEventListener("input", () => search(field.value.toLowerCase().split(/\s+/)));
search([]);
</script>
)html";

std::string Cell(const char* kind, const std::string& text) {
    return "<td class=\"" + std::string(kind) + "\">" + text + "</td>";
}

std::string Row(const RegisterFile& file, const Register& reg) {
    std::string row = "<tr>" + Cell("code", EscapeMarkup(reg.name)) + Cell("code", AddressText(reg.twoWire)) +
                      Cell("code", AddressText(reg.threeWire)) + Cell("code", AccessText(reg.access)) +
                      Cell("code", EndianText(reg));
    if (file.IsLineBased()) row += Cell("code", InitialValueText(file, reg));
    return row + Cell("bits", DrawRegister(reg)) + Cell("text", EscapeMarkup(DescriptionText(reg))) +
           Cell("text", EscapeMarkup(reg.function)) + "</tr>\n";
}

void WriteFile(const RegisterFile& file, Output& out) {
    out.Write("<h2>" + EscapeMarkup(FileName(file.Path())) + "</h2>\n<table>\n");
    out.Write(
        std::string(
            "<thead><tr><th>Name</th><th>2-wire</th><th>3-wire</th><th>Access</th><th>Byte order</th>") +
        (file.IsLineBased() ? "<th>Initial</th>" : "") +
        "<th>Bits</th><th>Description</th><th>Function</th></tr></thead>\n<tbody>\n");
    for (const Register& reg : file.Registers())
        out.Write(Row(file, reg));
    out.Write("</tbody>\n</table>\n");
}

}  // namespace

void WriteHtml(std::vector<RegisterFile>& files, Output& out) {
    const std::string title = "Registers of " + EscapeMarkup(FileName(files.front().Path()));
    out.Write("<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n");
    out.Write("<meta name=\"viewport\" content=\"width=device-width\">\n<title>" + title + "</title>\n");
    out.Write(kStyle);
    out.Write(
        "</head>\n<body>\n<header>\n<label>Search <input id=\"search\" type=\"search\" autofocus></label>\n");
    out.Write("<span id=\"count\"></span>\n</header>\n");
    for (const RegisterFile& file : files)
        WriteFile(file, out);
    out.Write(kSearch);
    out.Write("</body>\n</html>\n");
}

}  // namespace macroctl
