# Korvane: make run | make test | make package | make install | make bench | make shots | make sanitize | make tsan | make fuzz
BUILD ?= build
JOBS ?= $(shell nproc)
# WERROR=ON (the CI build): every warning an error, with -Wshadow -Wold-style-cast
# -Wnon-virtual-dtor -Woverloaded-virtual besides -Wall -Wextra.
WERROR ?= OFF

# Everything the build, the program and the tests need, from Debian's packages.
PACKAGES := cmake make g++ pkg-config \
	qt6-base-dev qt6-base-dev-tools qt6-svg-dev qt6-qpa-plugins qt6-translations-l10n libgl-dev \
	libsqlcipher-dev sqlcipher libssl-dev libsodium-dev dbus-daemon \
	libgtest-dev libgmock-dev libbenchmark-dev \
	xvfb xauth fonts-dejavu-core papirus-icon-theme \
	xdg-utils shared-mime-info desktop-file-utils libfile-mimeinfo-perl \
	librsvg2-bin appstream dpkg-dev file

# What only make fuzz needs: clang and its libFuzzer runtime.
FUZZ_PACKAGES := clang libclang-rt-14-dev
FUZZ_SECONDS ?= 120

# make install: under PREFIX, or under DESTDIR/PREFIX for a staged tree.
PREFIX ?= /usr/local

.PHONY: all deps build run test package install bench shots sanitize tsan fuzz clean

all: build

# Installs only what is missing; the package lists are refreshed only then.
deps:
	@missing=""; for p in $(PACKAGES); do \
	  dpkg-query -W -f='$${Status}' $$p 2>/dev/null | grep -q 'install ok installed' || missing="$$missing $$p"; \
	done; \
	if [ -n "$$missing" ]; then \
	  if [ "$$(id -u)" -eq 0 ]; then SUDO=""; else SUDO="sudo"; fi; \
	  echo "Installing:$$missing"; \
	  $$SUDO apt-get update -qq && \
	  DEBIAN_FRONTEND=noninteractive $$SUDO apt-get install -y -qq --no-install-recommends $$missing; \
	fi

$(BUILD)/CMakeCache.txt:
	cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo -DKORVANE_WERROR=$(WERROR)

build: deps $(BUILD)/CMakeCache.txt
	@grep -qx 'KORVANE_WERROR:BOOL=$(WERROR)' $(BUILD)/CMakeCache.txt || cmake -S . -B $(BUILD) -DKORVANE_WERROR=$(WERROR)
	cmake --build $(BUILD) -j$(JOBS)

run: build
	$(BUILD)/bin/korvane

test: build
	cd $(BUILD) && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j$(JOBS)

# korvane_<version>_amd64.deb in $(BUILD), its dependencies computed by dpkg-shlibdeps.
package: build
	cd $(BUILD) && cpack -G DEB

install: build
	DESTDIR="$(DESTDIR)" cmake --install $(BUILD) --prefix $(PREFIX)

bench: build
	@for b in $(BUILD)/bin/bench_*; do echo "== $$b"; $$b; done

shots: build
	QT_QPA_PLATFORM=offscreen $(BUILD)/bin/korvane_shots $(BUILD)/shots
	@ls $(BUILD)/shots

# Leaks too: what the system's libraries keep for the life of the process is listed,
# each with its reason, in tests/lsan.supp; a leak of ours fails the test.
sanitize: deps
	cmake -S . -B $(BUILD)-asan -DCMAKE_BUILD_TYPE=Debug -DKORVANE_SANITIZE=ON -DKORVANE_BENCH=OFF
	cmake --build $(BUILD)-asan -j$(JOBS)
	cd $(BUILD)-asan && QT_QPA_PLATFORM=offscreen ASAN_OPTIONS=detect_leaks=1 \
	  LSAN_OPTIONS=suppressions=$(CURDIR)/tests/lsan.supp:print_suppressions=0 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
	  ctest --output-on-failure -j$(JOBS)

# The threads under ThreadSanitizer: the loader's reader thread (its own tests, and the
# main window that loads through it) and the writer of the four exports.
TSAN_TESTS := korvane_tests tst_frmmain tst_frmoptions
tsan: deps
	cmake -S . -B $(BUILD)-tsan -DCMAKE_BUILD_TYPE=Debug -DKORVANE_TSAN=ON -DKORVANE_BENCH=OFF
	cmake --build $(BUILD)-tsan -j$(JOBS) --target $(TSAN_TESTS)
	cd $(BUILD)-tsan/bin && export QT_QPA_PLATFORM=offscreen TSAN_OPTIONS=halt_on_error=1:second_deadlock_stack=1 && \
	  ./korvane_tests --gtest_filter='Chargement.*:Exports.*' && ./tst_frmmain && ./tst_frmoptions

# The caption language under libFuzzer, ASan and UBSan for FUZZ_SECONDS; the corpus
# grows in $(BUILD)-fuzz/corpus from the seeds in fuzz/graines.
fuzz:
	$(MAKE) deps PACKAGES="$(PACKAGES) $(FUZZ_PACKAGES)"
	cmake -S fuzz -B $(BUILD)-fuzz -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=RelWithDebInfo
	cmake --build $(BUILD)-fuzz -j$(JOBS)
	mkdir -p $(BUILD)-fuzz/corpus
	UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
	  $(BUILD)-fuzz/fuzz_legende -max_total_time=$(FUZZ_SECONDS) -dict=fuzz/legende.dict -print_final_stats=1 $(BUILD)-fuzz/corpus fuzz/graines

clean:
	rm -rf $(BUILD) $(BUILD)-asan $(BUILD)-tsan $(BUILD)-fuzz
