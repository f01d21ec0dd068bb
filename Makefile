# Thin wrapper over CMake: `make test` sets up a fresh Debian 12 machine, builds and runs the suite.
BUILD ?= build
JOBS ?= $(shell nproc)
PACKAGES := cmake g++ make qtbase5-dev libgtest-dev libgmock-dev libbenchmark-dev zlib1g-dev pkg-config pybind11-dev python3-dev python3-pytest
IMAGE ?= examples/sample.eeprom
# `make run` writes its export here, never into the repository.
RUN_DIR ?= $(or $(TMPDIR),/tmp)/epromtool-run
TOOL = $(BUILD)/tools/epromtool/epromtool

.PHONY: all deps configure build test asan run examples goldens bench format clean

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

# list, verify and export IMAGE; every step runs, and the worst exit code is make's.
run: build
	@mkdir -p "$(RUN_DIR)"; out="$(RUN_DIR)/$$(basename "$(IMAGE)").cal"; rm -f "$$out"; worst=0; \
	step() { echo "== epromtool $$*"; $(TOOL) "$$@"; code=$$?; [ $$code -le $$worst ] || worst=$$code; }; \
	step list "$(IMAGE)"; step verify "$(IMAGE)"; step export "$(IMAGE)" -o "$$out"; \
	if [ -f "$$out" ]; then echo "== export written to $$out ($$(wc -l < "$$out") lines), its start:"; head -n 30 "$$out"; fi; \
	exit $$worst

# Regenerates the demonstration image and its export with the built tool.
examples: build
	$(TOOL) sample -o examples/sample.eeprom
	$(TOOL) export examples/sample.eeprom -o examples/sample.cal

# Regenerates the examples and every golden file of the tool's tests from what the build prints.
goldens: examples
	EPROM_UPDATE_GOLDENS=1 $(BUILD)/tests/test_tool --gtest_brief=1

# Runs every benchmark program, then prints the ratios of all of them in one table (one run each:
# the machines are noisy, so read the ratios, not the absolute rates).
bench: build
	@summary=$$(mktemp); \
	for b in $(BUILD)/bench/bench_*; do [ -x $$b ] && EPROM_BENCH_SUMMARY=$$summary $$b; done; \
	echo; echo "== speed relative to the reference, all programs"; \
	printf "%-10s %-12s %-10s %8s %10s %8s\n" concern kernel reference bytes GB/s ratio; \
	cat $$summary; rm -f $$summary

format:
	clang-format -i $$(git ls-files '*.h' '*.cpp')

clean:
	rm -rf $(BUILD) build-asan
