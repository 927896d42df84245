# The everyday commands. Each installs the Debian packages that are missing, configures and builds.
# PRESET builds another preset: make test PRESET=asan
PRESET ?= dev
JOBS ?= $(shell nproc)

.PHONY: help run tidy test build release install asan tsan fuzz bench format clean

help:
	@echo "make run     build, and play music from the simulated service"
	@echo "make test    build and pass every test (PRESET=asan or tsan: under a sanitizer)"
	@echo "make install build, and install below PREFIX (/usr/local); DESTDIR stages for a package"
	@echo "make clang   the tests, built with clang"
	@echo "make debian12 debian13  the tests in another Debian release, with its compiler"
	@echo "make compilers  those three after each other"
	@echo "make aarch64 cross-build for AArch64, and pass the tests under emulation"
	@echo "make bench   measure, by instruction count"
	@echo "make fuzz    run each fuzzer for FUZZ_SECONDS (default 30)"
	@echo "make schedules N=100000 [SEED=1]  play random schedules over the module"
	@echo "make faults  let each operation of a journey fail once"
	@echo "make deb     Debian packages, built in a clean root with the tests; make deb-test tries them in another"
	@echo "make tidy    clang-tidy over all sources"
	@echo "make format  clang-format over all sources"

packages:
	@scripts/install-packages
.PHONY: packages

build: packages
	@cmake --preset $(PRESET) > /dev/null
	@cmake --build --preset $(PRESET) -j $(JOBS)

release:
	@$(MAKE) --no-print-directory build PRESET=release

PREFIX ?= /usr/local
install:
	@scripts/install-packages --no-tests
	@cmake --preset release > /dev/null
	@cmake --build --preset release -j $(JOBS)
	@DESTDIR="$(DESTDIR)" cmake --install build/release --prefix "$(PREFIX)"

run: release
	@scripts/run-demo build/release/bin

test: build
	@ctest --preset $(PRESET) -j $(JOBS) $(CTEST_ARGS)

# Cross-builds against a device's root (scripts/make-sysroot); the tests run under qemu-user.
aarch64:
	@scripts/install-packages scripts/packages-aarch64.txt
	@cmake --fresh --preset $@ > /dev/null
	@cmake --build --preset $@ -j $(JOBS)
	@ctest --preset $@ -j $(JOBS) $(CTEST_ARGS)
	@sed 's/^/not under emulation: /' build/$@/not-emulated.txt
	@scripts/stripped-sizes build/$@ aarch64-linux-gnu-
.PHONY: aarch64

asan tsan:
	@$(MAKE) --no-print-directory test PRESET=$@

# Another compiler on this machine, other releases of Debian with theirs (12: GCC 12, 13: GCC 14) in a root.
clang:
	@scripts/install-packages scripts/packages-clang.txt
	@$(MAKE) --no-print-directory test PRESET=clang
debian12: suite = bookworm
debian13: suite = trixie
debian12 debian13:
	@scripts/install-packages scripts/packages-root.txt
	@scripts/in-debian $(suite) make test PRESET=$(PRESET) JOBS=$(JOBS) CTEST_ARGS='$(CTEST_ARGS)'
# One after the other, for each takes the whole machine.
compilers:
	@for target in clang debian12 debian13; do $(MAKE) --no-print-directory $$target || exit 1; done
.PHONY: clang debian12 debian13 compilers

# The same journey again and again, each time with another operation that fails.
faults: build
	@build/$(PRESET)/bin/system_tests --gtest_filter='Faults*'
.PHONY: faults

# Random schedules over the module; the same numbers play the same ones.
schedules: build
	@build/$(PRESET)/bin/schedules --seed=$(or $(SEED),1) --count=$(or $(N),2000)
.PHONY: schedules

bench:
	@scripts/install-packages scripts/packages-bench.txt
	@$(MAKE) --no-print-directory release
	@bench/run build/release

fuzz: packages
	@scripts/install-packages scripts/packages-fuzz.txt
	@cmake --preset fuzz > /dev/null
	@cmake --build --preset fuzz -j $(JOBS) --target fuzz_json fuzz_path fuzz_url
	@scripts/run-fuzzers build/fuzz $${FUZZ_SECONDS:-30}

# Debian packages of what is committed, in build/packages.
deb:
	@scripts/install-packages scripts/packages-deb.txt
	@JOBS=$(JOBS) scripts/make-packages
deb-test:
	@scripts/install-packages scripts/packages-deb.txt
	@scripts/try-packages
.PHONY: deb deb-test

tidy: build
	@git ls-files "host/*.cpp" "src/*.cpp" | xargs -P $(JOBS) -n 4 clang-tidy --quiet -p build/$(PRESET)

format:
	@git ls-files '*.cpp' '*.h' | xargs clang-format -i

clean:
	@rm -rf build
