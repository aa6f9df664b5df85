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

# The editor on the default workspace, showing the sample project. A workspace
# made before the sample existed gets it too; a file of that name is kept.
SAMPLE := $(HOME)/StageWrightSpace/Levels/Sample.plist
run: build
	@if [ -d "$(dir $(SAMPLE))" ] && [ ! -e "$(SAMPLE)" ]; then cp resources/sample/Levels/Sample.plist "$(SAMPLE)"; fi
	./build/apps/stagewright/stagewright "$(SAMPLE)"

test: build
	@ctest --preset default

bench: build
	@./bench/run-all.sh

clean:
	rm -rf build
