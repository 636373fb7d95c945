# The two set-up commands of the README, and the builds behind them.
#   make demo   build, then run the main job on the simulated scanner
#   make test   build and run every suite, again under ASan+UBSan, then each fuzz target briefly
BUILD       ?= build
ASAN_BUILD  ?= build-asan
FUZZ_BUILD  ?= build-fuzz
JOBS        ?= $(shell nproc)
FUZZ_SECONDS ?= 15
CMAKE_FLAGS ?=
# ccache keys objects by paths relative to the tree, so a fresh clone elsewhere (CI) reuses the
# objects of earlier builds on the same machine; debug info then names the first clone's folder.
export CCACHE_BASEDIR ?= $(CURDIR)
export CCACHE_NOHASHDIR ?= 1

.PHONY: all deps build demo test test-plain test-asan fuzz bench clean

all: build

deps:
	@scripts/ensure-deps

build: deps
	@cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo -DQMK_WERROR=ON $(CMAKE_FLAGS) >/dev/null
	@cmake --build $(BUILD) -j $(JOBS)

demo: build
	@$(BUILD)/tools/qmkscan/qmkscan demo

test: test-plain test-asan fuzz

test-plain: build
	ctest --test-dir $(BUILD) --output-on-failure -j $(JOBS)

test-asan: deps
	@cmake -S . -B $(ASAN_BUILD) -DCMAKE_BUILD_TYPE=Debug -DQMK_WERROR=ON -DQMK_SANITIZE=ON \
	    -DQMK_BENCH=OFF $(CMAKE_FLAGS) >/dev/null
	@cmake --build $(ASAN_BUILD) -j $(JOBS)
	ASAN_OPTIONS=detect_leaks=1 LSAN_OPTIONS=suppressions=$(CURDIR)/tests/lsan.supp:print_suppressions=0 \
	    UBSAN_OPTIONS=print_stacktrace=1 \
	    ctest --test-dir $(ASAN_BUILD) --output-on-failure -j $(JOBS)

fuzz: deps
	@CC=clang CXX=clang++ cmake -S . -B $(FUZZ_BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo \
	    -DQMK_FUZZ=ON $(CMAKE_FLAGS) >/dev/null
	@cmake --build $(FUZZ_BUILD) -j $(JOBS)
	@scripts/run-fuzzers $(FUZZ_BUILD)/fuzz $(FUZZ_SECONDS)

bench: build
	@for b in $(BUILD)/bench/bench_*; do [ -x "$$b" ] && "$$b"; done

clean:
	rm -rf $(BUILD) $(ASAN_BUILD) $(FUZZ_BUILD)

# make docs   render the theme gallery of docs/themes.md (docs/themes/*.png) with qmkscan
.PHONY: docs
docs: deps
	@cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo -DQMK_WERROR=ON $(CMAKE_FLAGS) >/dev/null
	@cmake --build $(BUILD) -j $(JOBS) --target qmkscan
	@scripts/render-gallery $(BUILD)/tools/qmkscan/qmkscan docs/themes
