# Debian packages from CPack (`cmake --build build --target package`), one per component, installing side by
# side under /usr:
#   libquillmar1               runtime     libquillmar-core.so.1, -texts, -qt and -pages
#   libquillmar-dev            dev         headers, the .so links, the CMake and pkg-config files, the reference
#   quillmar-designer-plugin   designer    the Designer plugin, in Qt's plugin folder
#   quillmar-tools             tools       quillmar-forms (desktop entry, icon), quillmar-check, the form schema
#   quillmar-sqlite            sqlite      the SQLite extension with quillmar_check and quillmar_broken
# Package dependencies on other packages come from the binaries (dpkg-shlibdeps); among these packages, from
# the components' dependencies, at the same version.
install(FILES ${PROJECT_SOURCE_DIR}/packaging/quillmar-forms.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications
  COMPONENT tools)
install(FILES ${PROJECT_SOURCE_DIR}/packaging/quillmar-forms.svg
  DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps COMPONENT tools)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quillmar)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "Quillmar developers <quillmar@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "single-line data-entry field that knows what it must contain")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEB_COMPONENT_INSTALL ON)
# Packaged binaries carry no debug information, as Debian packages do.
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The plugin needs libquillmar-qt.so.1 of this build, which no installed package provides yet: dpkg-shlibdeps
# finds it here, and the dependency on libquillmar1 comes from the component's dependency below.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/lib)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)

set(CPACK_COMPONENTS_ALL runtime dev tools)
if(TARGET quillmar_designer)
  list(APPEND CPACK_COMPONENTS_ALL designer)
endif()
if(TARGET quillmar_sqlite)
  list(APPEND CPACK_COMPONENTS_ALL sqlite)
endif()

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libquillmar${QUILLMAR_ABI_VERSION})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
# A shlibs file, so that packages built against libquillmar1 depend on it.
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "Quillmar's libraries: the field, its Qt 6 widget and property pages")

set(CPACK_DEBIAN_DEV_PACKAGE_NAME libquillmar-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_COMPONENT_DEV_DEPENDS runtime)
# What the installed CMake package's find_dependency and the headers need.
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "libicu-dev, qt6-base-dev")
set(CPACK_COMPONENT_DEV_DESCRIPTION "Quillmar's headers, CMake package and pkg-config files")

set(CPACK_DEBIAN_DESIGNER_PACKAGE_NAME quillmar-designer-plugin)
set(CPACK_DEBIAN_DESIGNER_PACKAGE_SECTION devel)
set(CPACK_COMPONENT_DESIGNER_DEPENDS runtime)
set(CPACK_COMPONENT_DESIGNER_DESCRIPTION "QuillmarEdit in Qt Designer's widget box, with its property pages")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME quillmar-tools)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION utils)
# quillmar-forms stores records through Qt SQL's SQLite driver, a plugin that no binary links.
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "libqt6sql6-sqlite")
set(CPACK_COMPONENT_TOOLS_DESCRIPTION "quillmar-forms, the form application, and quillmar-check, the headless checker")

set(CPACK_DEBIAN_SQLITE_PACKAGE_NAME quillmar-sqlite)
set(CPACK_DEBIAN_SQLITE_PACKAGE_SECTION database)
set(CPACK_COMPONENT_SQLITE_DESCRIPTION "A form's rules in SQL: quillmar_check and quillmar_broken for SQLite (.load)")

include(CPack)
