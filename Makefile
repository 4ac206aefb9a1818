# SPDX-FileCopyrightText: 2026 The Kivora developers
# SPDX-License-Identifier: GPL-3.0-or-later
# make run    installs what is missing, builds and starts Kivora
# make test   installs what is missing, builds and runs every test (also under sanitizers)
# make bench  builds and prints the benchmark figures
# make torture kills profile-changing commands at random moments (ITERATIONS=600) and checks
#             the profile file after each kill; prints its figures
# make format formats the sources with .clang-format
# make translations runs lupdate: every translatable text into translations/kivora_*.ts

BUILD      ?= build
ASAN_BUILD ?= build-asan
GENERATOR  := -G Ninja
JOBS       ?= $(shell nproc)
SOURCES     = $(shell git ls-files '*.cpp' '*.h' 2>/dev/null || find . -path ./build\* -prune -o \( -name '*.cpp' -o -name '*.h' \) -print)

.PHONY: all deps build run test test-core test-asan check-format format bench torture clean package \
	translations

all: build

deps:
	@scripts/install-deps

$(BUILD)/build.ninja: | deps
	cmake -S . -B $(BUILD) $(GENERATOR) -DCMAKE_BUILD_TYPE=RelWithDebInfo

build: deps $(BUILD)/build.ninja
	cmake --build $(BUILD) -j $(JOBS)

run: build
	@if [ -x $(BUILD)/app/kivora-app ]; then exec $(BUILD)/app/kivora-app; else exec $(BUILD)/cli/kivora; fi

check-format: deps
	@clang-format --dry-run --Werror $(SOURCES) && echo "format: clean"

format:
	clang-format -i $(SOURCES)

test-core: build
	cd $(BUILD) && ctest --output-on-failure -j $(JOBS)

$(ASAN_BUILD)/build.ninja: | deps
	cmake -S . -B $(ASAN_BUILD) $(GENERATOR) -DCMAKE_BUILD_TYPE=Debug -DKIVORA_CORE_ONLY=ON -DKIVORA_SANITIZE=ON

test-asan: deps $(ASAN_BUILD)/build.ninja
	cmake --build $(ASAN_BUILD) -j $(JOBS)
	cd $(ASAN_BUILD) && ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
		ctest --output-on-failure -j $(JOBS) -L core

test: check-format test-core test-asan

bench: build
	$(BUILD)/bench/kivora-bench
	@echo
	@echo "command lines writing at the same time (no application running)"
	@bench/parallel-writers.sh $(BUILD)/cli/kivora 2 200
	@bench/parallel-writers.sh $(BUILD)/cli/kivora 4 200
	@echo
	@echo "tray application (private X display; start, popover and memory figures)"
	@if command -v Xvfb >/dev/null && command -v trayer >/dev/null && command -v xdotool >/dev/null; then \
		app/measure.sh $(BUILD)/app/kivora-app; \
	else echo "  skipped: needs Xvfb, trayer and xdotool"; fi

ITERATIONS ?= 600
torture: build
	$(BUILD)/bench/torture/kivora-torture --iterations $(ITERATIONS) $(BUILD)/cli/kivora

translations: deps $(BUILD)/build.ninja
	cmake --build $(BUILD) --target update_translations
	scripts/english-plurals translations/kivora_en.ts

package: build
	cd $(BUILD) && cpack -G DEB && echo "package: $$(ls -t "$$PWD"/kivora_*.deb | head -n 1)"

clean:
	rm -rf $(BUILD) $(ASAN_BUILD)
