# The two commands of the README:
#   make run   installs what is missing, builds, and runs the main job on the shipped example
#   make test  installs what is missing, builds, and runs every test: the release build,
#              the same under ASan+UBSan, and a short pass of every fuzz target
# and, with their own commands, the long fuzz campaign (make fuzz), the benchmarks
# (make bench) and the Debian package (make package).
.PHONY: run test setup build build-sanitize test-sanitize build-fuzz test-fuzz fuzz bench package clean

# The main job: generate the shipped actuator example into a fresh out/Actuator and list
# the files written.
run: build
	rm -rf out/Actuator
	./build/default/src/app/eowizard generate examples/actuator/Actuator.bvg \
	    --project out/Actuator/Actuator.vbp \
	    --registry examples/registry/demo-host.reg --answer yes

test: build
	ctest --preset default
	$(MAKE) test-sanitize test-fuzz

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

# The fuzz targets (clang, libFuzzer, ASan+UBSan); only they are built in build/fuzz.
build-fuzz: setup
	cmake --preset fuzz
	cmake --build --preset fuzz

# A fixed number of runs of each fuzz target from its seed corpus.
test-fuzz: build-fuzz
	ctest --preset fuzz

# FUZZ_SECONDS of fuzzing per target (60 by default), keeping the corpus in build/fuzz.
FUZZ_SECONDS ?= 60
fuzz: build-fuzz
	cmake --preset fuzz -DEOWIZARD_FUZZ_SECONDS=$(FUZZ_SECONDS)
	ctest --preset fuzz-long

# Every benchmark program of the release build, then each guarded ratio beside its guard
# and the whole-process comparison.
bench: build
	bench/run.sh build/default

# The Debian package build/default/eowizard_<version>_amd64.deb; install it with
# apt install ./build/default/eowizard_*.deb
package: build
	cd build/default && cpack -G DEB

clean:
	rm -rf build
