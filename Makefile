# `make run` and `make test` install what is missing, build and run.
.PHONY: run test test-asan test-tsan test-libcxx test-mac test-mach-o test-corpus test-fuzz
.PHONY: test-damaged test-long test-report test-panel test-clients test-package coverage-mac mac
.PHONY: mac-cross mac-cross-bundle lint stage validate validate-asan package
.PHONY: bench bench-check bench-growth bench-documents bootstrap clean

run: stage
	tools/run-demo

test: bootstrap
	cmake --preset dev >/dev/null
	cmake --build --preset dev
	ctest --preset dev

# The leak checker of clang 14 guesses where the thread-local data of a loaded module begins, and
# sometimes reads unmapped memory. The preset sets intercept_tls_get_addr=0 to prevent that. Plug-ins
# that are wrong on purpose, and crash, are left out, and so is what sanitizers say nothing about: the
# installed release.
test-asan: bootstrap
	cmake --preset asan >/dev/null
	cmake --build --preset asan
	ctest --preset asan

# Runs only the tests with several threads.
test-tsan: bootstrap
	cmake --preset tsan >/dev/null
	cmake --build --preset tsan
	ctest --preset tsan

# Tests the plug-in and its foundation with libc++, the C++ library of macOS.
test-libcxx:
	@tools/bootstrap --libcxx
	cmake --preset libcxx >/dev/null
	cmake --build --preset libcxx
	ctest --preset libcxx

# Tests the macOS files on Linux, over GNUstep.
test-mac:
	@tools/bootstrap --mac
	cmake --preset mac-gnustep >/dev/null
	cmake --build --preset mac-gnustep
	ctest --preset mac-gnustep

# Fails if no test over GNUstep runs a line of the _Mac and _Posix files.
coverage-mac:
	@tools/bootstrap --mac
	cmake --preset mac-gnustep -B build/mac-coverage -DTYPELOFT_UNITY_TESTS=ON \
	    -DCMAKE_CXX_FLAGS=--coverage -DCMAKE_OBJC_FLAGS=--coverage \
	    -DCMAKE_OBJCXX_FLAGS=--coverage >/dev/null
	cmake --build build/mac-coverage
	ctest --test-dir build/mac-coverage --label-exclude lint
	tests/mac/coverage build/mac-coverage

# Builds the bundle that `make mac-cross` checks.
mac-cross-bundle:
	@tools/bootstrap --mac-cross
	cmake --preset mac-cross >/dev/null
	cmake --build --preset mac-cross

# Runs the bundle in the headless host; x86_64 Linux only.
test-mach-o: bootstrap mac-cross-bundle
	@tools/bootstrap --mac
	@tools/bootstrap --mach-o
	cmake --preset dev -DTYPELOFT_MACH_O=ON >/dev/null
	cmake --build --preset dev --target mach-o-all
	tests/mac/mach-o/run-tests

# Builds and tests the bundle on a Mac.
mac: bootstrap
	cmake --preset mac >/dev/null
	cmake --build --preset mac
	ctest --preset mac --output-junit tests.xml

# Builds the bundle for macOS on Linux, twice, and its tests, and checks the bundle.
# tools/mac-cross/README.md explains how.
mac-cross:
	@tools/bootstrap --mac-cross
	cmake --preset mac-cross --fresh >/dev/null
	cmake --build --preset mac-cross
	cmake --preset mac-cross --fresh -B build/mac-cross/again >/dev/null
	cmake --build build/mac-cross/again --target TypeloftSPEA
	cmake --preset mac-cross-tests --fresh >/dev/null
	cmake --build --preset mac-cross-tests
	ctest --preset mac-cross

# Real programs of Debian open documents with and without `Vexcor with`.
test-clients: bootstrap
	@tools/bootstrap --clients
	cmake --preset dev >/dev/null
	cmake --build --preset dev --target Vexcor
	tests/clients/run-tests build/dev/programs/installed/Vexcor/Vexcor

# Reads real documents, which tools/corpus fetches from Debian and npm packages into .deps/corpus.
test-corpus:
	@tools/bootstrap --corpus
	cmake --preset dev >/dev/null
	cmake --build --preset dev --target headless-host document-fonts
	tools/corpus
	tools/check-corpus build/dev/programs/headless-host/headless-host \
	    build/dev/tests/libraries/documents/document-fonts .deps/corpus docs/CORPUS.md

# Plays the panel's page in Debian's Chromium. Pictures of it are in build/panel-test.
test-panel: stage
	@tools/bootstrap --panel
	node --test tests/panel/page.test.mjs tests/panel/panel.test.mjs

# Runs each fuzzer of the document readers for FUZZ_SECONDS, from seeds that are generated.
FUZZ_SECONDS = 30
test-fuzz: bootstrap
	tests/fuzz/run $(FUZZ_SECONDS)

# Reads damaged copies of real documents under sanitizers; of the samples if the real ones cannot be
# fetched.
DAMAGED_COPIES = 100
test-damaged: bootstrap
	cmake --preset asan >/dev/null
	cmake --build --preset asan --target headless-host
	documents=samples; if tools/corpus >/dev/null; then documents=.deps/corpus; fi; \
	    ASAN_OPTIONS=detect_leaks=1:intercept_tls_get_addr=0 \
	    tests/fuzz/mutate build/asan/programs/headless-host/headless-host $$documents \
	    $(DAMAGED_COPIES)

# Looks at the HTML reports of docfonts in Chromium. Leaves its pictures in build/report.
test-report: bootstrap
	@tools/bootstrap --report
	cmake --preset dev >/dev/null
	cmake --build --preset dev --target make-report
	tests/programs/docfonts/html/check-report \
	    build/dev/tests/programs/docfonts/html/make-report build/report

# Takes about an hour: what each change needn't wait for. The kills take 0.1 s of a processor each;
# in ctest, KillScene has a time limit for few of them.
KILLS = 10000
test-long: bootstrap
	cmake --preset dev >/dev/null
	cmake --build --preset dev
	KILLS=$(KILLS) timeout 3600 build/dev/tests/programs/font-manager/vexcor/kill-test
	$(MAKE) test-damaged DAMAGED_COPIES=400
	$(MAKE) test-fuzz FUZZ_SECONDS=1200

lint: bootstrap
	cmake --preset dev >/dev/null
	ctest --preset dev --label-regex lint

# Builds what a user would install, in stage/.
stage: bootstrap
	cmake --preset release >/dev/null
	cmake --build --preset release
	rm -rf stage
	cmake --install build/release --prefix stage >/dev/null

# Builds the Debian package in build/release/package, with the time of the last commit as the time of
# its files, and checks it.
package:
	@tools/bootstrap --package
	tools/make-package

# Installs it into a minimal tree of this machine's release, runs it there and removes it.
test-package: package
	tests/package/test-package build/release/package/typeloft_*.deb

# Breaks the staged plug-in on purpose, by the rules up to VALIDATE_LEVEL, within VALIDATE_SECONDS.
VALIDATE_LEVEL = 10
VALIDATE_SECONDS = 600
validate: stage
	stage/bin/headless-host validate --level $(VALIDATE_LEVEL) --time $(VALIDATE_SECONDS) \
	    stage/lib/typeloft/Plug-ins/TypeloftSPEA.aip

# The same under sanitizers, over the plug-in as test-asan builds it.
validate-asan: bootstrap
	cmake --preset asan >/dev/null
	cmake --build --preset asan --target headless-host TypeloftSPEA SimulatedPluginCore \
	    PlugPlugFrameworks
	ASAN_OPTIONS=detect_leaks=0:intercept_tls_get_addr=0 \
	    build/asan/programs/headless-host/headless-host validate --level $(VALIDATE_LEVEL) \
	    --time $(VALIDATE_SECONDS) build/asan/plugins/illustrator/src/TypeloftSPEA.aip

PLUGIN_CORE = build/release/programs/installed/Vexcor/PluginFiles/PluginCore.framework/PluginCore
BENCH_FONT = /usr/share/fonts/truetype/dejavu/DejaVuSansMono-BoldOblique.ttf
bench: bootstrap
	cmake --preset release -DTYPELOFT_BUILD_BENCH=ON >/dev/null
	cmake --build --preset release --target plugin-bench startup-bench panel-bench library-bench \
	    Vexcor docfonts headless-host TypeloftSPEA PluginCoreFramework PlugPlugFrameworks
	bench/measure build/release --json build/bench.json
	build/release/bench/panel-bench $(PLUGIN_CORE) $(BENCH_FONT)

# How time grows with the library and the document; writes docs/growth.svg. Takes some minutes.
bench-growth: bench
	bench/measure-growth build/release --json build/growth.json

# Runs the scripts of `make bench` once with small sizes, over the build of `make stage`.
bench-check: bootstrap
	cmake --preset release -DTYPELOFT_BUILD_BENCH=ON >/dev/null
	cmake --build --preset release --target plugin-bench startup-bench library-bench panel-bench \
	    document-bench pdf-fonts docfonts Vexcor headless-host TypeloftSPEA PluginCoreFramework \
	    PlugPlugFrameworks
	bench/compare-pdf build/release/bench/pdf-fonts samples --pairs 1
	bench/measure build/release --fonts 40 --memory-fonts 40 --memory-documents 40 \
	    --pairs 1 --seconds 0.001 --json build/bench-check.json
	bench/measure-growth build/release --most 100 --runs 1 --plot build/growth-check.svg
	bench/measure-documents build/release samples --pairs 1 --seconds 0.01 --copies 20 \
	    --json build/bench-documents-check.json

# Measures how fast real documents are read, compared with pdffonts on the same files. Writes the
# table of docs/PERFORMANCE.md, and build/bench-documents.json.
bench-documents: bootstrap
	cmake --preset release -DTYPELOFT_BUILD_BENCH=ON >/dev/null
	cmake --build --preset release --target document-bench pdf-fonts headless-host
	tools/corpus >/dev/null
	build/release/bench/document-bench .deps/corpus
	cmake --build --preset release --target docfonts
	bench/measure-documents build/release .deps/corpus --json build/bench-documents.json
	bench/compare-speed build/release/programs/headless-host/headless-host .deps/corpus
	bench/compare-pdf build/release/bench/pdf-fonts .deps/corpus --json build/bench-pdf.json

bootstrap:
	@tools/bootstrap

clean:
	rm -rf build stage
