# Build, run and test Tarnwey on Debian 12.
#
#   make run           install what is missing, build (Release) and start the editor
#   make test          format check, then every test in a Release build and in a
#                      sanitizer build (address and undefined behaviour)
#   make bench         build (Release) and run the benchmarks
#   make package       build (Release), pack the portable archive into the build folder
#                      and check that it runs with the system's Qt hidden
#   make fuzz          build the fuzz targets with clang and run each for FUZZ_SECONDS
#                      (default 60): make fuzz FUZZ_SECONDS=5
#   make fuzz-seeds    write the seed inputs of fuzz/corpus anew
#   make format        format the sources in place
#   make format-check  fail when a source is not formatted
#
# The build folders can be moved: make test BUILD=build-mine ASAN_BUILD=build-mine-asan

BUILD ?= build
ASAN_BUILD ?= build-asan
FUZZ_BUILD ?= build-fuzz
JOBS ?= 2
FUZZ_SECONDS ?= 60
FUZZ_TARGETS := fieldreader tilesetfile mapsfile morlickfile eventtypesfile eventsfile \
                tilebank maploader warplist wildlist eventlist

PACKAGES := build-essential cmake qt6-base-dev qt6-base-dev-tools libgl-dev \
            libgtest-dev libbenchmark-dev clang-format fonts-dejavu-extra \
            libpng-dev clang-14 libclang-rt-14-dev scdoc desktop-file-utils \
            xvfb xauth xdotool
FORMAT_DIRS := src app tools tests bench fuzz

# apt-get needs root; sudo is used only when make does not run as root.
SUDO := $(if $(filter 0,$(shell id -u)),,sudo)

# Sanitizer faults stop the test at once and print where they happened.
SANITIZER_ENV := ASAN_OPTIONS=abort_on_error=1:halt_on_error=1:detect_leaks=1:print_stacktrace=1:strict_init_order=1 \
                 UBSAN_OPTIONS=abort_on_error=1:halt_on_error=1:print_stacktrace=1
# The same in a fuzz run, where libFuzzer keeps the input that did it and
# looks for leaks itself.
FUZZ_ENV := ASAN_OPTIONS=abort_on_error=1:print_stacktrace=1 \
            UBSAN_OPTIONS=abort_on_error=1:halt_on_error=1:print_stacktrace=1

# The steps of a target run in the order given; cmake builds in parallel itself.
.NOTPARALLEL:

.PHONY: all deps configure build run test test-release test-asan test-fuzz bench package fuzz \
        fuzz-build fuzz-seeds format format-check clean

all: build

# Installs only the packages that are missing, and refreshes the package lists
# only when something has to be installed.
deps:
	@missing=""; \
	for p in $(PACKAGES); do \
	    dpkg-query -W -f='$${Status}' "$$p" 2>/dev/null | grep -q 'ok installed' || missing="$$missing $$p"; \
	done; \
	if [ -n "$$missing" ]; then \
	    echo "Installing:$$missing"; \
	    $(SUDO) env DEBIAN_FRONTEND=noninteractive apt-get update && \
	    $(SUDO) env DEBIAN_FRONTEND=noninteractive apt-get install -y $$missing; \
	fi

configure: deps
	cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=Release

build: configure
	cmake --build $(BUILD) -j $(JOBS)

run: build
	./$(BUILD)/bin/tarnwey

test: deps format-check test-release test-asan test-fuzz

test-release: build
	QT_QPA_PLATFORM=offscreen ctest --test-dir $(BUILD) --output-on-failure

test-asan: deps
	cmake -S . -B $(ASAN_BUILD) -DCMAKE_BUILD_TYPE=Debug -DTARNWEY_SANITIZE=ON -DTARNWEY_BENCH=OFF
	cmake --build $(ASAN_BUILD) -j $(JOBS)
	QT_QPA_PLATFORM=offscreen $(SANITIZER_ENV) ctest --test-dir $(ASAN_BUILD) --output-on-failure

# A few seconds of each fuzz target, so that they keep building and their
# seeds keep passing.
test-fuzz:
	$(MAKE) fuzz FUZZ_SECONDS=3

# The fuzz targets are built with clang, address and undefined-behaviour
# sanitizers, in a folder of their own.
fuzz-build: deps
	cmake -S . -B $(FUZZ_BUILD) -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_COMPILER=clang++-14 \
	      -DTARNWEY_FUZZ=ON -DBUILD_TESTING=OFF -DTARNWEY_BENCH=OFF
	cmake --build $(FUZZ_BUILD) -j $(JOBS) --target fuzz_all

# Each target starts from its seeds in fuzz/corpus/<target> and from what
# earlier runs found; new inputs go to $(FUZZ_BUILD)/fuzz-scratch/<target>/corpus
# and an input that breaks a reader to .../found, never into the repository.
# A finding stops the run with the reader's fault and the input's path. The
# ROM and tile bank files that the targets write for every input go to a
# folder in memory when there is one: on disk they cost most of the run.
FUZZ_TMP := $(if $(wildcard /dev/shm),/dev/shm/tarnwey-fuzz-$(shell id -u),$(FUZZ_BUILD)/fuzz-scratch/tmp)

fuzz: fuzz-build
	@for t in $(FUZZ_TARGETS); do \
	    scratch=$(FUZZ_BUILD)/fuzz-scratch/$$t; \
	    mkdir -p $$scratch/corpus $$scratch/found $(FUZZ_TMP); \
	    echo "== fuzz_$$t: $(FUZZ_SECONDS) s"; \
	    TMPDIR=$(FUZZ_TMP) QT_QPA_PLATFORM=offscreen $(FUZZ_ENV) \
	        ./$(FUZZ_BUILD)/fuzz/fuzz_$$t -max_total_time=$(FUZZ_SECONDS) -timeout=10 \
	        -print_final_stats=1 -artifact_prefix=$$scratch/found/ \
	        $$scratch/corpus fuzz/corpus/$$t 2>$$scratch/log.txt; \
	    status=$$?; \
	    rm -rf $(FUZZ_TMP); \
	    grep -E '^stat::number_of_executed_units|^Done' $$scratch/log.txt; \
	    if [ $$status -ne 0 ]; then tail -n 60 $$scratch/log.txt; exit $$status; fi; \
	done

# The seeds are made from the demo world and the fixture library. Inputs
# that once broke a reader (found-*) stay, so every run tries them again.
fuzz-seeds: fuzz-build
	cmake --build $(FUZZ_BUILD) -j $(JOBS) --target fuzz_makeseeds
	find fuzz/corpus -type f ! -name 'found-*' -delete
	./$(FUZZ_BUILD)/fuzz/fuzz_makeseeds fuzz/corpus

bench: build
	@if [ -x $(BUILD)/bin/tarnwey_bench ]; then \
	    ./$(BUILD)/bin/tarnwey_bench; \
	else \
	    echo "No benchmarks are built yet ($(BUILD)/bin/tarnwey_bench is missing)."; \
	fi

# The archive unpacks into one folder that carries its own Qt; the check
# shows it running with the system's Qt hidden. See README.md.
package: build
	cd $(BUILD) && cpack -G TGZ
	sh tests/package/packagecheck.sh $$(ls -t $(BUILD)/Tarnwey-*.tar.gz | head -n 1)

format: deps
	find $(FORMAT_DIRS) \( -name '*.cpp' -o -name '*.h' \) -print0 | xargs -0 -r clang-format -i

format-check: deps
	find $(FORMAT_DIRS) \( -name '*.cpp' -o -name '*.h' \) -print0 | xargs -0 -r clang-format --dry-run -Werror

clean:
	rm -rf $(BUILD) $(ASAN_BUILD) $(FUZZ_BUILD)
