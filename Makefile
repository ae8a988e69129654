# The main targets are `run` and `test`. Each installs missing packages, builds and runs.
.PHONY: run test test-asan test-tsan test-mac test-corpus mac lint stage bench bench-documents
.PHONY: bootstrap clean

run: stage
	tools/run-demo

test: bootstrap
	cmake --preset dev >/dev/null
	cmake --build --preset dev
	ctest --preset dev

# The leak checker of clang 14 guesses the address of a loaded module's thread-local data and sometimes
# reads unmapped memory, so intercept_tls_get_addr is off (see CMakePresets.json).
test-asan: bootstrap
	cmake --preset asan >/dev/null
	cmake --build --preset asan
	ctest --preset asan

# Only the tests of code that several threads use.
test-tsan: bootstrap
	cmake --preset tsan >/dev/null
	cmake --build --preset tsan
	ctest --preset tsan

# The macOS files over GNUstep, on Linux.
test-mac:
	@tools/bootstrap --mac
	cmake --preset mac-gnustep >/dev/null
	cmake --build --preset mac-gnustep
	ctest --preset mac-gnustep

# On a Mac: the bundle and its tests.
mac: bootstrap
	cmake --preset mac >/dev/null
	cmake --build --preset mac
	ctest --preset mac

# Reads real documents from Debian packages, downloaded below .deps/corpus.
test-corpus:
	@tools/bootstrap --corpus
	cmake --preset dev >/dev/null
	cmake --build --preset dev --target headless-host document-fonts
	tools/corpus
	tools/check-corpus build/dev/programs/headless-host/headless-host \
	    build/dev/tests/libraries/documents/document-fonts .deps/corpus docs/CORPUS.md

lint: bootstrap
	cmake --preset dev >/dev/null
	ctest --preset dev --label-regex lint

# Installs below stage/ what a user would install.
stage: bootstrap
	cmake --preset release >/dev/null
	cmake --build --preset release
	rm -rf stage
	cmake --install build/release --prefix stage >/dev/null

bench: bootstrap
	cmake --preset release -DTYPELOFT_BUILD_BENCH=ON >/dev/null
	cmake --build --preset release --target plugin-bench
	build/release/bench/plugin-bench

# Measures how fast real documents are read, compared with pdffonts on the same files.
bench-documents: bootstrap
	cmake --preset release -DTYPELOFT_BUILD_BENCH=ON >/dev/null
	cmake --build --preset release --target document-bench headless-host
	tools/corpus >/dev/null
	build/release/bench/document-bench .deps/corpus
	bench/compare-speed build/release/programs/headless-host/headless-host .deps/corpus

bootstrap:
	@tools/bootstrap

clean:
	rm -rf build stage
