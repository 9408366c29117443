# Build, run and test Tarnwey on Debian 12.
#
#   make run           install what is missing, build (Release) and start the editor
#   make test          format check, then every test in a Release build and in a
#                      sanitizer build (address and undefined behaviour)
#   make bench         build (Release) and run the benchmarks
#   make package       build (Release) and pack the portable archive into the build folder
#   make format        format the sources in place
#   make format-check  fail when a source is not formatted
#
# The build folders can be moved: make test BUILD=build-mine ASAN_BUILD=build-mine-asan

BUILD ?= build
ASAN_BUILD ?= build-asan
JOBS ?= 2

PACKAGES := build-essential cmake qt6-base-dev qt6-base-dev-tools libgl-dev \
            libgtest-dev libbenchmark-dev clang-format fonts-dejavu-extra \
            libpng-dev
FORMAT_DIRS := src app tools tests bench

# apt-get needs root; sudo is used only when make does not run as root.
SUDO := $(if $(filter 0,$(shell id -u)),,sudo)

# Sanitizer faults stop the test at once and print where they happened.
SANITIZER_ENV := ASAN_OPTIONS=abort_on_error=1:halt_on_error=1:detect_leaks=1:print_stacktrace=1:strict_init_order=1 \
                 UBSAN_OPTIONS=abort_on_error=1:halt_on_error=1:print_stacktrace=1

# The steps of a target run in the order given; cmake builds in parallel itself.
.NOTPARALLEL:

.PHONY: all deps configure build run test test-release test-asan bench package format format-check clean

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

test: deps format-check test-release test-asan

test-release: build
	QT_QPA_PLATFORM=offscreen ctest --test-dir $(BUILD) --output-on-failure

test-asan: deps
	cmake -S . -B $(ASAN_BUILD) -DCMAKE_BUILD_TYPE=Debug -DTARNWEY_SANITIZE=ON -DTARNWEY_BENCH=OFF
	cmake --build $(ASAN_BUILD) -j $(JOBS)
	QT_QPA_PLATFORM=offscreen $(SANITIZER_ENV) ctest --test-dir $(ASAN_BUILD) --output-on-failure

bench: build
	@if [ -x $(BUILD)/bin/tarnwey_bench ]; then \
	    ./$(BUILD)/bin/tarnwey_bench; \
	else \
	    echo "No benchmarks are built yet ($(BUILD)/bin/tarnwey_bench is missing)."; \
	fi

# The archive unpacks into one folder that runs with Debian's Qt 6 runtime
# packages alone; see README.md.
package: build
	cd $(BUILD) && cpack -G TGZ

format: deps
	find $(FORMAT_DIRS) \( -name '*.cpp' -o -name '*.h' \) -print0 | xargs -0 -r clang-format -i

format-check: deps
	find $(FORMAT_DIRS) \( -name '*.cpp' -o -name '*.h' \) -print0 | xargs -0 -r clang-format --dry-run -Werror

clean:
	rm -rf $(BUILD) $(ASAN_BUILD)
