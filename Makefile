# Two commands for a fresh Debian machine:
#   make test   installs what is missing, builds, runs every test
#   make run    installs what is missing, builds, starts the form application
BUILD     ?= build
BUILDTYPE ?= RelWithDebInfo
PACKAGES  := cmake ninja-build ccache g++ make pkg-config clang-format \
             libicu-dev nlohmann-json3-dev libgtest-dev libgmock-dev libbenchmark-dev \
             qt6-base-dev libqt6sql6-sqlite sqlite3 libsqlite3-dev libcsv-dev dpkg-dev file doxygen python3 python3-jsonschema qt6-tools-dev qt6-tools-dev-tools qt6-l10n-tools qt6-translations-l10n libqt6opengl6-dev designer-qt6 imagemagick xdotool xvfb xauth dbus at-spi2-core python3-pyatspi clang-14 libclang-rt-14-dev
SUDO      := $(shell [ "$$(id -u)" = 0 ] || echo sudo)
WERROR    := $(if $(CI),ON,OFF)

.PHONY: all setup configure build package docs test unit-tests schema-check package-test sanitize fuzz-smoke format format-check bench run clean

all: build

# Installs only the packages that are missing, so a second run costs a dpkg query.
setup:
	@missing=""; for p in $(PACKAGES); do \
	  dpkg-query -W -f='$${Status}\n' $$p 2>/dev/null | grep -q 'install ok installed' || missing="$$missing $$p"; \
	done; \
	if [ -n "$$missing" ]; then \
	  echo "Installing:$$missing"; \
	  $(SUDO) env DEBIAN_FRONTEND=noninteractive apt-get update -qq && \
	  $(SUDO) env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $$missing; \
	fi

$(BUILD)/build.ninja:
	cmake -S . -B $(BUILD) -G Ninja -DCMAKE_BUILD_TYPE=$(BUILDTYPE) \
	  -DCMAKE_CXX_COMPILER_LAUNCHER=ccache -DQUILLMAR_WERROR=$(WERROR)

configure: setup $(BUILD)/build.ninja

build: configure
	cmake --build $(BUILD)

format-check: setup
	@files=$$(git ls-files '*.h' '*.cpp'); \
	[ -z "$$files" ] || clang-format --dry-run -Werror $$files

format:
	git ls-files '*.h' '*.cpp' | xargs -r clang-format -i

test: unit-tests schema-check docs package-test sanitize fuzz-smoke

# Every form file of the repository follows the form file's JSON Schema.
schema-check: setup
	python3 tools/check-form-schema.py $$(git ls-files '*.qform.json')

unit-tests: build format-check
	QT_QPA_PLATFORM=offscreen ctest --test-dir $(BUILD) --output-on-failure -j2

# The API reference (Doxygen) from the public headers' /// comments in $(BUILD)/docs/html; a public
# declaration without a comment fails it. The development package carries it when it was built first.
docs: configure
	cmake --build $(BUILD) --target docs

# The Debian packages (libquillmar1, libquillmar-dev, quillmar-designer-plugin, quillmar-tools) in $(BUILD).
package: build
	rm -f $(BUILD)/*.deb
	cmake --build $(BUILD) --target package

# The packages as another project uses them: unpacked into a scratch root, the libraries carry their
# versioned SONAME, quillmar-check and the SQLite extension run from there (the libraries found as in the
# system's library folder), and three consumers build against it and run: a CMake
# project (find_package, with QUiLoader and the Designer plugin), a program built with pkg-config, and a
# project that builds Quillmar as a subproject (add_subdirectory).
package-test: package
	@set -e; stage=$(abspath $(BUILD))/package-stage; root=$$stage/root; \
	rm -rf "$$stage"; mkdir -p "$$root"; \
	for deb in $(BUILD)/*.deb; do dpkg -x "$$deb" "$$root"; done; \
	libdir=$$root/usr/lib/$$(dpkg-architecture -qDEB_HOST_MULTIARCH); \
	for lib in core texts qt pages; do \
	  objdump -p "$$libdir/libquillmar-$$lib.so.1" | grep -q "SONAME *libquillmar-$$lib.so.1$$" || \
	    { echo "libquillmar-$$lib.so.1: no SONAME libquillmar-$$lib.so.1"; exit 1; }; \
	done; \
	LD_LIBRARY_PATH="$$libdir" "$$root/usr/bin/quillmar-check" --help >/dev/null; \
	broken=$$(sqlite3 :memory: -cmd ".load $$libdir/quillmar/quillmar_sqlite" \
	  "SELECT quillmar_broken('examples/orders.qform.json', 'Quantity', 750, 'en_US')"); \
	[ "$$broken" = 128 ] || { echo "quillmar_sqlite from the package: quillmar_broken gave '$$broken', not 128"; exit 1; }; \
	cmake -S tests/package -B "$$stage/cmake" -G Ninja -DCMAKE_BUILD_TYPE=$(BUILDTYPE) \
	  -DCMAKE_CXX_COMPILER_LAUNCHER=ccache -DCMAKE_PREFIX_PATH="$$root/usr" >/dev/null; \
	cmake --build "$$stage/cmake"; \
	export LD_LIBRARY_PATH="$$libdir"; \
	QT_QPA_PLATFORM=offscreen "$$stage/cmake/quillmar-package-consumer" "$$libdir/qt6/plugins/designer"; \
	"$$stage/cmake/quillmar-package-core"; \
	export PKG_CONFIG_PATH="$$libdir/pkgconfig"; \
	pkg-config --exists --print-errors quillmar-qt quillmar-pages; \
	g++ -std=c++20 tests/package/CoreProgram.cpp -o "$$stage/pkg-config-core" \
	  $$(pkg-config --cflags --libs quillmar-core) -Wl,-rpath,"$$libdir"; \
	"$$stage/pkg-config-core"; \
	cmake -S tests/package/subproject -B "$$stage/subproject" -G Ninja -DCMAKE_BUILD_TYPE=$(BUILDTYPE) \
	  -DCMAKE_CXX_COMPILER_LAUNCHER=ccache -DQUILLMAR_SOURCE_DIR=$(CURDIR) >/dev/null; \
	cmake --build "$$stage/subproject"; \
	"$$stage/subproject/quillmar-subproject-core"

# The whole suite again under AddressSanitizer and UndefinedBehaviorSanitizer (clang).
sanitize: setup
	@[ ! -x tools/sanitize.sh ] || tools/sanitize.sh

# Every fuzz target for a bounded time over its committed seed corpus.
fuzz-smoke: setup
	@[ ! -x tools/fuzz-smoke.sh ] || tools/fuzz-smoke.sh

bench: build
	@for b in $(BUILD)/bench/*_bench; do echo "== $$b"; $$b; done

# The example's records go to the user's data folder, never into the source tree.
run: build
	@if [ -z "$$DISPLAY" ] && [ -z "$$WAYLAND_DISPLAY" ]; then \
	  echo "make run: no display to show quillmar-forms on; run it under a virtual one with: xvfb-run -a make run"; \
	else \
	  data="$${XDG_DATA_HOME:-$$HOME/.local/share}/quillmar"; \
	  case "$$data" in /*) ;; *) data="$$HOME/.local/share/quillmar";; esac; \
	  mkdir -p "$$data" && \
	  $(BUILD)/apps/forms/quillmar-forms examples/orders.qform.json --database "$$data/orders.sqlite"; \
	fi

clean:
	rm -rf $(BUILD)
