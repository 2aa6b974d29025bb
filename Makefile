# The two commands of the README:
#   make run   installs what is missing, builds, and runs the main job on the shipped example
#   make test  installs what is missing, builds, and runs every test
.PHONY: run test setup build build-sanitize test-sanitize clean

EXAMPLE ?= examples/coil/Coil.bvg

run: build
	./build/default/src/app/eowizard session show $(EXAMPLE)

test: build
	ctest --preset default

setup:
	./scripts/setup.sh

build: setup
	cmake --preset default
	cmake --build --preset default

build-sanitize: setup
	cmake --preset sanitize
	cmake --build --preset sanitize

test-sanitize: build-sanitize
	ctest --preset sanitize

clean:
	rm -rf build
