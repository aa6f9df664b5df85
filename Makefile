# Two commands do everything on a fresh Debian machine:
#   make run    installs what is missing, builds, and starts the editor
#   make test   installs what is missing, builds, and runs every test
.PHONY: run test build deps configure bench clean

deps:
	@./scripts/install-deps.sh

configure: deps
	@cmake --preset default >/dev/null

build: configure
	@cmake --build --preset default

run: build
	./build/apps/stagewright-cli/stagewright-cli check resources/sample/Levels/Sample.plist

test: build
	@ctest --preset default

bench: build
	@./bench/run-all.sh

clean:
	rm -rf build
