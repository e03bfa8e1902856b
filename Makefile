# The jobs of this project. Each installs what it needs first (scripts/bootstrap.sh) and builds through the CMake
# presets into build/<preset>/.

MACHINE ?= default
ARGS ?=
SECONDS ?= 30

.PHONY: help run run-windows test test-native test-asan test-windows sweep-windows fuzz fleet bench kit dist docs format lint clean bootstrap

help:
	@echo "make run           report of a simulated machine (MACHINE=name or profile, ARGS=--trace ...)"
	@echo "make run-windows   the same report by the real DLL under Wine (MACHINE=...)"
	@echo "make test          native tests, the same under sanitizers, and the Windows tests under Wine"
	@echo "make sweep-windows each boundary call and allocation of the real DLLs fails once, under Wine (minutes)"
	@echo "make fuzz          every fuzz target, SECONDS=30 each"
	@echo "make fleet         Prometheus and its node exporter with the metrics of all built-in machines"
	@echo "make bench         benchmarks"
	@echo "make kit           the development kits for Windows (two compilers) and Linux, packed"
	@echo "make dist          the source archive that the ports are built from"
	@echo "make docs          the HTML reference, build/docs/html/index.html"
	@echo "make format        format every source"
	@echo "make lint          check format and run the static checks"
	@echo "make bootstrap     install everything that any of these needs"
	@echo "make clean         remove build/"

bootstrap:
	@scripts/bootstrap.sh native windows windows-vc bindings fuzz lint

# Where the tests have been built, their build is used.
run:
	@scripts/bootstrap.sh report
	@if grep -qs '^VESK_REPORT_ONLY:BOOL=OFF' build/native/CMakeCache.txt; then \
		scripts/build.sh native sondrel; else scripts/build.sh report; fi
	@build/native/bin/sondrel --machine "$(MACHINE)" $(ARGS) report

run-windows:
	@scripts/bootstrap.sh windows
	@scripts/build.sh windows
	@tests/windows/run_report.sh build/windows "$(MACHINE)"

test: test-native test-asan test-windows

test-native:
	@scripts/bootstrap.sh native bindings
	@scripts/build.sh native
	@ctest --preset native

test-asan:
	@scripts/bootstrap.sh native bindings
	@scripts/build.sh asan
	@ctest --preset asan

# The real DLL is compared with the native library, which has to be there too. The DLL for hosts of Visual C++ is tested
# in what the other one does not share with it.
test-windows:
	@scripts/bootstrap.sh native windows windows-vc bindings
	@scripts/build.sh native
	@scripts/build.sh windows
	@scripts/build.sh windows-vc
	@tests/windows/run_under_wine.sh build/windows ctest --preset windows
	@tests/windows/run_under_wine.sh build/windows ctest --preset windows-vc

sweep-windows:
	@scripts/bootstrap.sh windows
	@scripts/build.sh windows windows_fault_sweep
	@tests/windows/run_under_wine.sh build/windows wine build/windows/bin/windows_fault_sweep.exe $(ARGS)

fuzz:
	@scripts/bootstrap.sh fuzz
	@scripts/build.sh fuzz
	@scripts/fuzz.sh "$(SECONDS)"

fleet:
	@scripts/bootstrap.sh native
	@scripts/build.sh native sondrel
	@tests/fleet/check_fleet.py build/native/bin/sondrel

bench:
	@scripts/bootstrap.sh native
	@scripts/build.sh native
	@build/native/bin/sondrel_bench $(ARGS)
	@build/native/bin/sondrel_recording_bench

kit:
	@scripts/bootstrap.sh native windows windows-vc bindings
	@scripts/build.sh native kit
	@scripts/build.sh windows kit
	@scripts/build.sh windows-vc kit
	@packaging/collect_kits.sh build/kit build/native/VeskSondrel64-*.tar.gz build/windows/VeskSondrel64-*.zip \
		build/windows-vc/VeskSondrel64-*.zip

dist:
	@packaging/make_dist.py build/dist

docs:
	@scripts/bootstrap.sh lint
	@scripts/build_docs.sh

format:
	@scripts/bootstrap.sh lint
	@scripts/sources.sh | xargs clang-format -i

lint:
	@scripts/bootstrap.sh native windows windows-vc lint
	@scripts/lint.sh

clean:
	rm -rf build
