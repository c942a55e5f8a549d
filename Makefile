# Short commands for everyday work. Each installs the Debian packages that it misses.

JOBS := $(shell nproc)
FUZZ_SECONDS ?= 60
SOURCES = find src tests bench -name '*.h' -o -name '*.cpp'

.NOTPARALLEL:
.PHONY: build run test debug sanitize bench fuzz package test-package windows windows-libraries \
    windows-package test-windows format check-format tidy screenshots clean help

build: setup-build build/build.ninja ## the optimised command and component: build/tavisk, build/libtavisk.so
	@cmake --build --preset release --target tavisk_command tavisk_component

run: build ## open the editor on a sample document
	@tools/openEditor.sh

test: setup-test tests-configured ## build and run every test
	@cmake --build --preset release
	@ctest --preset release --parallel $(JOBS)

debug: setup-debug ## a build for the debugger: build-debug/tavisk
	@cmake --preset debug
	@cmake --build --preset debug

sanitize: setup-test ## the same tests under the address and undefined-behaviour sanitizers
	@cmake --preset sanitize
	@cmake --build --preset sanitize
	@ctest --preset sanitize --parallel $(JOBS)

bench: setup-bench ## measure, and write docs/performance.md
	@cmake --preset bench
	@cmake --build --preset bench
	@/usr/bin/python3 bench/run.py

fuzz: setup-fuzz ## run each fuzzer for FUZZ_SECONDS (60)
	@cmake --preset fuzz
	@cmake --build --preset fuzz
	@tools/runFuzzers.sh build-fuzz $(FUZZ_SECONDS)

package: setup-package build/build.ninja ## the Debian packages: build/packages
	@cmake --build --preset release --target tavisk_package

test-package: package tests-configured ## install them into a clean root, try them, remove them (as root)
	@ctest --preset release -C Package --tests-regex '^package'

windows: windows-libraries ## Tavisk.dll for Windows: build/windows/x64, build/windows/x86
	@mkdir -p build
	@for arch in x64 x86; do tools/windows/configure.sh $$arch && cmake --build --preset windows-$$arch \
	    --target tavisk_command tavisk_component || exit 1; done
	@tools/windows/checkImports.sh build/windows/x64/Tavisk.dll build/windows/x86/Tavisk.dll

windows-package: windows ## what is delivered: one zip file per word size, with everything in it
	@for arch in x64 x86; do cmake --build --preset windows-$$arch --target tavisk_package || exit 1; done

windows-libraries: setup-windows ## the libraries that it links, kept outside the clone
	@tools/windows/libraries.sh x64
	@tools/windows/libraries.sh x86

test-windows: windows setup-show tests-configured ## its tests, under Wine
	@cmake --build --preset release --target tavisk_command tavisk_pages
	@cmake --build --preset windows-x64
	@ctest --preset windows-x64 --parallel $(JOBS) $(WINDOWS_TESTS)

format: setup-style ## lay out all sources
	@$(SOURCES) | xargs clang-format -i

check-format: setup-style ## fail where `make format` would change something
	@$(SOURCES) | xargs clang-format --dry-run -Werror

tidy: setup-style ## look for mistakes with clang-tidy
	@cmake --preset debug > /dev/null
	@find src -name '*.cpp' ! -name '*_windows.cpp' ! -name '*_msw.cpp' | sort | xargs -n 1 -P $(JOBS) clang-tidy -p build-debug --quiet --extra-arg=-Wno-unknown-warning-option 2> /dev/null

screenshots: build ## the pictures in docs/images
	@tools/setup.sh show
	@tools/screenshots.sh

clean: ## remove every build folder
	rm -rf build build-*

help: ## this list
	@sed -n 's/^\([a-z-]*\):.* ## /\1\t/p' Makefile | expand -t 20

setup-%:
	@tools/setup.sh $*

# What only runs needs no test, and none of the packages for them.
build/build.ninja: CMakePresets.json | setup-build
	@cmake --preset release -D TAVISK_TESTS=OFF

.PHONY: tests-configured
tests-configured: setup-debug build/build.ninja
	@grep -qs '^TAVISK_TESTS:BOOL=ON' build/CMakeCache.txt || cmake --preset release -D TAVISK_TESTS=ON
