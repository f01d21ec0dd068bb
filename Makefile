# Thin wrapper over CMake: `make test` sets up a fresh Debian 12 machine, builds and runs the suite.
BUILD ?= build
JOBS ?= $(shell nproc)
PACKAGES := cmake g++ make qtbase5-dev libgtest-dev libgmock-dev libbenchmark-dev zlib1g-dev
IMAGE ?= examples/sample.eeprom

.PHONY: all deps configure build test asan run bench format clean

all: build

deps:
	@missing=""; for p in $(PACKAGES); do dpkg -s $$p >/dev/null 2>&1 || missing="$$missing $$p"; done; \
	if [ -n "$$missing" ]; then \
		echo "installing:$$missing"; \
		if [ "$$(id -u)" = 0 ]; then apt-get update -qq && DEBIAN_FRONTEND=noninteractive apt-get install -y -qq $$missing; \
		else echo "please install as root:$$missing"; exit 1; fi; \
	fi

configure: deps
	cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo

build: configure
	cmake --build $(BUILD) -j $(JOBS)

test: build
	cd $(BUILD) && ctest --output-on-failure -j $(JOBS)

asan: deps
	cmake -S . -B build-asan -DCMAKE_BUILD_TYPE=Debug -DEPROM_SANITIZE=address,undefined -DEPROM_BUILD_BENCH=OFF
	cmake --build build-asan -j $(JOBS)
	cd build-asan && ctest --output-on-failure -j $(JOBS)

run: build
	@if [ -x $(BUILD)/tools/epromtool/epromtool ]; then \
		$(BUILD)/tools/epromtool/epromtool list $(IMAGE); \
		$(BUILD)/tools/epromtool/epromtool verify $(IMAGE); \
		$(BUILD)/tools/epromtool/epromtool export $(IMAGE); \
	else echo "epromtool is not built yet"; fi

bench: build
	@for b in $(BUILD)/bench/bench_*; do [ -x $$b ] && $$b; done

format:
	clang-format -i $$(git ls-files '*.h' '*.cpp')

clean:
	rm -rf $(BUILD) build-asan
