# Two commands do everything on a fresh Debian machine:
#   make run    installs what is missing, builds, and starts the editor
#   make test   installs what is missing, builds, and runs every test
.PHONY: run test build deps configure bench clean asan-test debug check-format check-layering install package

deps:
	@./scripts/install-deps.sh

# Benchmarks are built only for `make bench`.
BENCH ?= OFF
configure: deps
	@cmake --preset default -DSTAGEWRIGHT_BUILD_BENCH=$(BENCH) $(CMAKE_ARGS) >/dev/null

build: configure
	@cmake --build --preset default

# The editor on the default workspace, showing the sample project. A workspace
# made before the sample existed gets it too; a file of that name is kept.
SAMPLE := $(HOME)/StageWrightSpace/Levels/Sample.plist
run: build
	@if [ -d "$(dir $(SAMPLE))" ] && [ ! -e "$(SAMPLE)" ]; then cp resources/sample/Levels/Sample.plist "$(SAMPLE)"; fi
	./build/apps/stagewright/stagewright "$(SAMPLE)"

test: build
	@ctest --preset default

# Every test again under AddressSanitizer and UndefinedBehaviorSanitizer.
asan-test: deps
	@cmake --preset asan $(CMAKE_ARGS) >/dev/null
	@cmake --build --preset asan
	@ctest --preset asan

# The programs, their desktop entry, icons, metainfo and project file type,
# and the library's CMake package, under PREFIX (through sudo when it is not
# writable; DESTDIR stages the files for a packager).
PREFIX ?= /usr/local
install: build
	@DESTDIR="$(DESTDIR)" ./scripts/install-build.sh build "$(PREFIX)"

# The Debian package of the programs, build/stagewright_VERSION-1_ARCH.deb.
package: build
	@cd build && cpack -G DEB | sed -n 's/^CPack: - package: \(.*\) generated\.$$/\1/p'

check-format:
	@./scripts/check-format.sh

check-layering:
	@./scripts/check-layering.sh

bench:
	@$(MAKE) --no-print-directory build BENCH=ON
	@./bench/run-all.sh

# Full debug information, for stepping through the code in a debugger.
debug: deps
	@cmake --preset debug $(CMAKE_ARGS) >/dev/null
	@cmake --build --preset debug

clean:
	rm -rf build build-asan build-debug
