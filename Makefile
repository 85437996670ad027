# A thin front over CMakePresets.json.

MAKEFLAGS += --no-print-directory

JOBS ?= $(shell nproc)
PREFIX ?= /usr/local
CMAKE_ARGS ?=
ARGS ?=
NEW ?= build/bench/results.json

packages := cmake/packages.sh
as_owner := cmake/as_owner.sh
ctest_options := --parallel $(JOBS) --no-tests=error
# The sanitizers' runtimes do not know the most random of address layouts.
fixed_addresses := $(shell setarch -R true 2>/dev/null && echo setarch -R)
sources := api bench core examples include python src tests
clang_format = find $(sources) \( -name '*.[ch]' -o -name '*.[ch]pp' \) -print0 | \
	xargs -0 $$(command -v clang-format-14 || echo clang-format)

# $(call build,preset,options,target...): for users, who may have another compiler. Where it is tested
# warnings are errors, of all that is compiled there.
build = $(as_owner) cmake --preset $(1) -DZELM_WERROR=OFF $(2) $(CMAKE_ARGS) && \
	$(as_owner) cmake --build --preset $(1) --parallel $(JOBS) $(addprefix --target ,$(3))
strict := -DZELM_WERROR=ON

# The packages that ZELM_BUILD_PYTHON=ON in CMAKE_ARGS asks for.
python_group := $(if $(filter -DZELM_BUILD_PYTHON=ON,$(CMAKE_ARGS)),python)

.PHONY: all help demo test wide bench bench-compare bench-python install deb wheel sanitize thread abi \
	format check-format doc clean

all: ## build the libraries
	$(packages) build
	$(call build,release,-DZELM_BUILD_TESTS=OFF -DZELM_BUILD_EXAMPLES=OFF,zelm zelmsafe zelcore)

help: ## list the targets
	@sed -n 's/^\([a-z-]*\):.*## /\1\t/p' $(MAKEFILE_LIST) | expand -t 16

demo: ## build and run examples/terrain, ARGS="--refine 14" for a finer grid
	$(packages) build example
	$(call build,release,-DZELM_BUILD_TESTS=OFF -DZELM_BUILD_EXAMPLES=ON,terrain)
	$(as_owner) build/release/examples/terrain --output '$(CURDIR)/terrain.png' \
		--map '$(CURDIR)/terrain-map.png' $(ARGS)

test: ## build everything, warnings being errors, and run all tests
	$(packages) build example python test
	$(call build,release,-DZELM_BUILD_TESTS=ON -DZELM_BUILD_EXAMPLES=ON -DZELM_BUILD_PYTHON=ON \
		$(strict))
	$(as_owner) ctest --preset release $(ctest_options) $(ARGS)

wide: ## build for registers of 32 bytes (AVX2), run the tests, compare all members with build/release
	$(packages) build test
	@grep -qw avx2 /proc/cpuinfo || { echo 'This processor has no AVX2.' >&2; exit 1; }
	$(call build,release,,zelm)
	$(call build,wide,$(strict))
	$(as_owner) ctest --preset wide $(ctest_options) $(ARGS)

bench: ## measure the library beside its peers, ARGS="--filter lu --quick"
	$(packages) build bench
	$(call build,bench)
	$(as_owner) build/bench/bench/zelm_bench --json '$(NEW)' $(ARGS)

bench-compare: ## compare results: OLD=file of an earlier `make bench`, NEW=file of the last one
	bench/compare.py '$(OLD)' '$(NEW)'

bench-python: ## measure the Python package beside NumPy, ARGS="--filter inv --orders 3,4"
	$(packages) build python
	$(call build,release,-DZELM_BUILD_TESTS=OFF -DZELM_BUILD_EXAMPLES=OFF -DZELM_BUILD_PYTHON=ON)
	$(as_owner) env PYTHONPATH=build/release/python \
		$$(sed -n 's/^Python3_EXECUTABLE:.*=//p' build/release/CMakeCache.txt) \
		python/benchmark/ratios.py $(ARGS)

install: ## install to PREFIX=/usr/local, below DESTDIR if that is set
	$(packages) build $(python_group)
	$(call build,release,-DZELM_BUILD_TESTS=OFF -DZELM_BUILD_EXAMPLES=OFF \
		-DZELM_BUILD_PYTHON=OFF -DCMAKE_INSTALL_PREFIX='$(PREFIX)')
	$(as_owner) touch build/release/install_manifest.txt
	DESTDIR='$(DESTDIR)' cmake --install build/release

deb: ## make a Debian package in build/release; CMAKE_ARGS=-DZELM_BUILD_PYTHON=ON: python3-zelm too
	$(packages) build $(python_group)
	$(call build,release,-DZELM_BUILD_TESTS=OFF -DZELM_BUILD_EXAMPLES=OFF \
		-DZELM_BUILD_PYTHON=OFF -DCMAKE_INSTALL_PREFIX=/usr)
	cd build/release && ../../$(as_owner) cpack

wheel: ## make a wheel of the Python package in build/wheel
	$(packages) build python wheel
	$(as_owner) /usr/bin/python3 -m pip wheel --no-deps --wheel-dir build/wheel .

sanitize: ## run all tests with the address and undefined-behaviour sanitizers
	$(packages) build example test
	$(call build,sanitize,$(strict))
	$(as_owner) $(fixed_addresses) ctest --preset sanitize $(ctest_options) $(ARGS)

thread: ## run the tests of threads with the thread sanitizer, Clang and its OpenMP runtime
	$(packages) build example test sanitize
	$(call build,thread,$(strict))
	$(as_owner) $(fixed_addresses) ctest --preset thread $(ctest_options) $(ARGS)

abi: ## compare the binary interface with the one kept in abi/
	$(packages) build abi
	$(as_owner) cmake/abi.sh check

format: ## format the sources
	$(packages) format
	$(clang_format) -i

check-format: ## check the format of the sources
	$(packages) format
	$(clang_format) --dry-run --Werror

doc: ## make the reference from the headers, in build/doc/html
	$(packages) doc
	$(as_owner) cmake/doc.sh

clean: ## remove all that was built
	rm -rf build terrain*.png
