# Thin wrapper over CMake: `make test` sets up a fresh Debian 12 machine, builds and runs the suite.
BUILD ?= build
JOBS ?= $(shell nproc)
PACKAGES := cmake g++ make qtbase5-dev libgtest-dev libgmock-dev libbenchmark-dev zlib1g-dev pkg-config pybind11-dev python3-dev python3-pytest python3-fusepy python3-numpy python3-pandas python3-matplotlib chromium
IMAGE ?= examples/sample.eeprom
# `make run` writes its export here, never into the repository.
RUN_DIR ?= $(or $(TMPDIR),/tmp)/epromtool-run
TOOL = $(BUILD)/tools/epromtool/epromtool
# Rebuilds go through ccache where it is installed.
CCACHE := $(shell command -v ccache >/dev/null 2>&1 && echo -DCMAKE_CXX_COMPILER_LAUNCHER=ccache)

.PHONY: all deps configure build test asan test-bigendian fuzz-deps fuzz-build fuzz fuzz-merge run examples goldens bench bench-batch bench-device bench-import format clean

all: build

deps:
	@missing=""; for p in $(PACKAGES); do dpkg -s $$p >/dev/null 2>&1 || missing="$$missing $$p"; done; \
	if [ -n "$$missing" ]; then \
		echo "installing:$$missing"; \
		if [ "$$(id -u)" = 0 ]; then apt-get update -qq && DEBIAN_FRONTEND=noninteractive apt-get install -y -qq $$missing; \
		else echo "please install as root:$$missing"; exit 1; fi; \
	fi

configure: deps
	cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo $(CCACHE)

build: configure
	cmake --build $(BUILD) -j $(JOBS)

test: build
	cd $(BUILD) && ctest --output-on-failure -j $(JOBS)

asan: deps
	cmake -S . -B build-asan -DCMAKE_BUILD_TYPE=Debug -DEPROM_SANITIZE=address,undefined -DEPROM_BUILD_BENCH=OFF $(CCACHE)
	cmake --build build-asan -j $(JOBS)
	cd build-asan && ctest --output-on-failure -j $(JOBS)

# The library and its C++ suites cross-built for s390x (big-endian) and run under qemu-s390x. The
# sysroot of s390x packages lies under the build folder and is reused by later runs; the tool (its
# tests start it as a child process, which user-mode emulation can not follow), the installed-package
# checks, Python and the benchmarks are left out.
BIGENDIAN_BUILD ?= build-bigendian
BIGENDIAN_SYSROOT = $(abspath $(BIGENDIAN_BUILD))/sysroot

test-bigendian:
	cmake/s390x-sysroot.sh $(BIGENDIAN_SYSROOT)
	cmake -S . -B $(BIGENDIAN_BUILD) -DCMAKE_TOOLCHAIN_FILE=$(abspath cmake/s390x-toolchain.cmake) \
		-DEPROM_SYSROOT=$(BIGENDIAN_SYSROOT) -DCMAKE_BUILD_TYPE=RelWithDebInfo -DEPROM_BIG_ENDIAN_LANE=ON \
		-DEPROM_BUILD_TOOLS=OFF -DEPROM_BUILD_PYTHON=OFF -DEPROM_BUILD_BENCH=OFF $(CCACHE)
	cmake --build $(BIGENDIAN_BUILD) -j $(JOBS)
	cd $(BIGENDIAN_BUILD) && ctest --output-on-failure -j $(JOBS)

# Fuzzing: clang with its libFuzzer runtime, the library built with ASan and UBSan in build-fuzz.
FUZZ_SECONDS ?= 60
# A fixed seed makes a short run repeat the same search; FUZZ_SEED=0 lets libFuzzer pick one.
FUZZ_SEED ?= 1
FUZZ_TARGETS := block selfdescribing text image
FUZZ_PACKAGES := clang libclang-rt-14-dev qtbase5-dev cmake make
FUZZ_BUILD := build-fuzz
# Block images are small; texts and whole images get 64 KiB.
FUZZ_LEN = $$(case $$t in block|selfdescribing) echo 4096;; *) echo 65536;; esac)
# One process, in-process (no -jobs, so that a finding ends the run with its exit code); the
# library's own error lines on standard error are dropped, libFuzzer's reports are not.
FUZZ_FLAGS = -dict=fuzz/calibration.dict -rss_limit_mb=512 -timeout=1 -close_fd_mask=3 \
	-print_final_stats=1
# AddressSanitizer's quarantine of freed memory (256 MB by default) would count against the
# memory limit that is meant for one input.
export ASAN_OPTIONS ?= quarantine_size_mb=16

fuzz-deps:
	@missing=""; for p in $(FUZZ_PACKAGES); do dpkg -s $$p >/dev/null 2>&1 || missing="$$missing $$p"; done; \
	if [ -n "$$missing" ]; then \
		echo "installing:$$missing"; \
		if [ "$$(id -u)" = 0 ]; then apt-get update -qq && DEBIAN_FRONTEND=noninteractive apt-get install -y -qq $$missing; \
		else echo "please install as root:$$missing"; exit 1; fi; \
	fi

fuzz-build: fuzz-deps
	cmake -S . -B $(FUZZ_BUILD) -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=RelWithDebInfo \
		-DEPROM_BUILD_FUZZ=ON -DEPROM_BUILD_TESTS=OFF -DEPROM_BUILD_TOOLS=OFF -DEPROM_BUILD_BENCH=OFF \
		$(CCACHE)
	cmake --build $(FUZZ_BUILD) -j $(JOBS)

# Runs every target for FUZZ_SECONDS from its committed corpus (left untouched: new inputs go to
# the build directory); any crash, leak, timeout or memory overrun fails.
fuzz: fuzz-build
	@for t in $(FUZZ_TARGETS); do \
		work=$(FUZZ_BUILD)/corpus/$$t; art=$(FUZZ_BUILD)/artifacts/$$t; mkdir -p $$work $$art; \
		echo "== fuzz_$$t for $(FUZZ_SECONDS) s"; \
		$(FUZZ_BUILD)/fuzz/fuzz_$$t $(FUZZ_FLAGS) -max_len=$(FUZZ_LEN) \
			-max_total_time=$(FUZZ_SECONDS) -seed=$(FUZZ_SEED) -artifact_prefix=$$art/ $$work fuzz/corpus/$$t \
			> $(FUZZ_BUILD)/fuzz_$$t.log 2>&1; code=$$?; \
		grep -E "^#[0-9]+ +DONE|stat::number_of_executed_units|stat::average_exec_per_sec" $(FUZZ_BUILD)/fuzz_$$t.log; \
		if [ $$code != 0 ] || [ -n "$$(ls -A $$art)" ]; then \
			tail -n 60 $(FUZZ_BUILD)/fuzz_$$t.log; echo "fuzz_$$t: finding in $$art"; exit 1; fi; \
	done

# Minimises each committed corpus together with what the last runs found, by edge coverage
# alone so that it stays a few hundred small files.
fuzz-merge: fuzz-build
	@for t in $(FUZZ_TARGETS); do \
		rm -rf fuzz/corpus/$$t.new; mkdir -p fuzz/corpus/$$t.new $(FUZZ_BUILD)/corpus/$$t; \
		$(FUZZ_BUILD)/fuzz/fuzz_$$t -merge=1 -use_counters=0 -close_fd_mask=3 -max_len=$(FUZZ_LEN) -rss_limit_mb=512 -timeout=5 \
			fuzz/corpus/$$t.new fuzz/corpus/$$t $(FUZZ_BUILD)/corpus/$$t 2>&1 | tail -n 1; \
		rm -rf fuzz/corpus/$$t; mv fuzz/corpus/$$t.new fuzz/corpus/$$t; \
	done

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

# Whole-process timings of epromtool over a folder of BATCH_IMAGES images against cksum.
BATCH_IMAGES ?= 10000
bench-batch: build
	/usr/bin/python3 bench/batch_bench.py $(TOOL) $(BUILD)/bench/peak_memory $(BATCH_IMAGES)

# `set` of one field on the emulated at24 (FUSE, 32-byte pages, 5 ms each) against writing the
# whole image: pages, bytes and seconds of each, and their ratio.
bench-device: build
	/usr/bin/python3 bench/device_bench.py $(TOOL) examples/sample.eeprom

# Whole-process timings of `import --dry-run` of a 4 MiB and a 16 MiB image's own export against
# the export itself: seconds, their ratio and the goal (within 5x at 16 MiB).
bench-import: build
	/usr/bin/python3 bench/import_bench.py $(TOOL)

format:
	clang-format -i $$(git ls-files '*.h' '*.cpp')

clean:
	rm -rf $(BUILD) build-asan $(FUZZ_BUILD) $(BIGENDIAN_BUILD)

# Debian packages: a copy of the sources under $(DEB_DIR) (the worktree stays clean) is built with
# dpkg-buildpackage into the four .deb files there; the build log is $(DEB_DIR)/build.log.
DEB_DIR ?= $(BUILD)/deb
DEB_TOOLS := dpkg-dev lintian pkg-config
.PHONY: deb deb-check

deb:
	@$(MAKE) --no-print-directory deps PACKAGES="$(DEB_TOOLS)"
	rm -rf $(DEB_DIR) && mkdir -p $(DEB_DIR)/src
	git ls-files -z --cached --others --exclude-standard | \
		xargs -0 sh -c 'for f; do [ -e "$$f" ] && printf "%s\0" "$$f"; done' sh | \
		xargs -0 cp --parents -t $(DEB_DIR)/src
	@cd $(DEB_DIR)/src && if ! dpkg-checkbuilddeps 2>/dev/null; then \
		if [ "$$(id -u)" = 0 ]; then apt-get update -qq && \
			DEBIAN_FRONTEND=noninteractive apt-get build-dep -y -qq "$$PWD"; \
		else dpkg-checkbuilddeps; echo "please install the build dependencies as root"; exit 1; fi; \
	fi
	@# debhelper gives the build an empty HOME: ccache is told where the shared cache lies.
	@echo "dpkg-buildpackage in $(DEB_DIR)/src, log in $(DEB_DIR)/build.log"; start=$$(date +%s); \
	ccache=$$(command -v ccache >/dev/null 2>&1 && \
		echo CMAKE_CXX_COMPILER_LAUNCHER=ccache CCACHE_DIR=$$(ccache -k cache_dir)); \
	if ! (cd $(DEB_DIR)/src && env $$ccache \
			dpkg-buildpackage -us -uc -b -j$(JOBS)) > $(DEB_DIR)/build.log 2>&1; then \
		tail -n 60 $(DEB_DIR)/build.log; exit 1; fi; \
	echo "built in $$(( $$(date +%s) - start )) s:"; ls -l $(DEB_DIR)/*.deb

# Lintian on the packages (an error fails), then tests/packaging/deb-check.sh: installs them into
# this system, uses them and purges them again. Run by .ci/run; needs root.
deb-check: deb
	lintian --fail-on error --tag-display-limit 0 $(DEB_DIR)/*.changes
	tests/packaging/deb-check.sh $(DEB_DIR) .
