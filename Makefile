# What one types every day. CMakePresets.json holds the builds, docs/building.md the explanations.

.PHONY: build demo test test-windows test-editors fuzz check bench performance docs package check-format format tidy \
        clean install-dependencies

build:
	cmake --preset release
	cmake --build --preset release

demo:
	@scripts/install_dependencies demo
	@scripts/build_quietly demo
	@build/demo/bin/macroctl run --registers examples/registers/amplifier.rgi examples/scripts/bringup.mac

test:
	@scripts/install_dependencies
	@scripts/run_tests release statements clang asan tsan windows
	@scripts/test_editors

test-windows:
	@scripts/install_dependencies
	@scripts/run_tests windows

test-editors:
	@scripts/install_dependencies
	@scripts/test_editors

# make fuzz SECONDS=900
SECONDS ?= 60
fuzz:
	@scripts/install_dependencies
	@scripts/fuzz $(SECONDS)

check:
	@scripts/install_dependencies check
	@scripts/run_checks

# make bench BENCH_OPTIONS="--rounds 9 --markdown sieve sort"
bench:
	@scripts/install_dependencies bench
	@scripts/build_quietly release macroctl
	@bench/compare $(BENCH_OPTIONS)

# Measures everything anew that docs/performance.md tells. It takes a quarter of an hour on an idle machine.
performance:
	@scripts/install_dependencies bench
	@scripts/build_quietly release macroctl many_commands_plugin
	@bench/compare --document
	@bench/compare --document --unseen
	@bench/scale --document

docs:
	@scripts/install_dependencies
	@cmake --preset release >/dev/null
	@cmake --build --preset release --target docs
	@echo build/release/api/index.html

package:
	@scripts/install_dependencies
	@scripts/make_packages release windows

check-format:
	@scripts/check_format

format:
	@scripts/check_format --fix

tidy:
	@scripts/run_checks tidy

clean:
	rm -rf build

install-dependencies:
	@scripts/install_dependencies
