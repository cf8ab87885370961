# How each of Quillmar's libraries (core, qt, pages) is built.
#
# Public headers include each other as <quillmar/folder/Header.h>, the way an installed consumer does. In the
# build tree that prefix resolves through ${QUILLMAR_INCLUDE_DIR}/quillmar, which holds a link to each public
# header and the generated export headers; an internal header is not there, so a public header that includes
# one fails here already, not only in the installed package. Internal code keeps its short includes
# ("validation/Rules.h") from the source root.
include(GenerateExportHeader)

set(QUILLMAR_INCLUDE_DIR ${PROJECT_BINARY_DIR}/include)
# The SONAME's number: raised when a release breaks binary compatibility, independent of the project version.
set(QUILLMAR_ABI_VERSION 1)

# quillmar_public_headers(<header>...): the headers installed under include/quillmar, linked into the build
# tree's include folder at the same place.
function(quillmar_public_headers)
  foreach(header IN LISTS ARGN)
    cmake_path(GET header PARENT_PATH folder)
    file(MAKE_DIRECTORY ${QUILLMAR_INCLUDE_DIR}/quillmar/${folder})
    file(CREATE_LINK ${PROJECT_SOURCE_DIR}/${header} ${QUILLMAR_INCLUDE_DIR}/quillmar/${header} SYMBOLIC)
    set_property(GLOBAL APPEND PROPERTY QUILLMAR_PUBLIC_HEADERS ${QUILLMAR_INCLUDE_DIR}/quillmar/${header})
    install(FILES ${PROJECT_SOURCE_DIR}/${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/quillmar/${folder} COMPONENT dev)
  endforeach()
endfunction()

# quillmar_add_library(<layer> EXPORT_HEADER <file> SOURCES <source>... [DEPENDS <layer>...]
#                      [PUBLIC_LIBS <target>...] [PRIVATE_LIBS <target>...])
# Compiles the sources once, as position-independent objects whose symbols are hidden unless a public header
# exports them (quillmar_<layer>_objects). From those objects come two libraries:
#   quillmar_<layer>           the one that is installed (quillmar::<layer>): shared libquillmar-<layer>.so.1
#                              or static, as BUILD_SHARED_LIBS says; it offers only the prefixed public headers;
#   quillmar_<layer>_internal  what the tests, tools and applications of this tree link: the same objects as a
#                              static archive (no second compile), with the short includes of every header, so
#                              they may reach past the public headers.
# The few functions of internal headers that a layer above calls (the Qt binding and the pages use some of
# the conversions and rules) are exported too; their headers stay out of the package.
# DEPENDS names the Quillmar layers below this one; PUBLIC_LIBS other targets whose headers the public headers
# include; PRIVATE_LIBS header-only targets the sources alone use.
function(quillmar_add_library layer)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "EXPORT_HEADER" "SOURCES;DEPENDS;PUBLIC_LIBS;PRIVATE_LIBS")
  set(objects quillmar_${layer}_objects)
  set(library quillmar_${layer})
  set(internal quillmar_${layer}_internal)
  string(TOUPPER ${layer} upperLayer)

  add_library(${objects} OBJECT ${arg_SOURCES})
  set_target_properties(${objects} PROPERTIES POSITION_INDEPENDENT_CODE ON CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON DEFINE_SYMBOL QUILLMAR_BUILDING_${upperLayer})
  target_compile_definitions(${objects} PRIVATE QUILLMAR_BUILDING_${upperLayer})
  generate_export_header(${objects} BASE_NAME QUILLMAR_${upperLayer}
    EXPORT_FILE_NAME ${QUILLMAR_INCLUDE_DIR}/quillmar/${arg_EXPORT_HEADER})
  install(FILES ${QUILLMAR_INCLUDE_DIR}/quillmar/${arg_EXPORT_HEADER} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/quillmar
    COMPONENT dev)

  set(internalDepends)
  set(publicDepends)
  foreach(depend IN LISTS arg_DEPENDS)
    list(APPEND internalDepends quillmar_${depend}_internal)
    list(APPEND publicDepends quillmar_${depend})
  endforeach()
  target_include_directories(${objects} PUBLIC ${PROJECT_SOURCE_DIR} ${QUILLMAR_INCLUDE_DIR})
  target_compile_features(${objects} PUBLIC cxx_std_20)
  target_link_libraries(${objects} PUBLIC ${internalDepends} ${arg_PUBLIC_LIBS}
    PRIVATE ${arg_PRIVATE_LIBS} quillmar_warnings)

  add_library(${library} $<TARGET_OBJECTS:${objects}>)
  add_library(quillmar::${layer} ALIAS ${library})
  set_target_properties(${library} PROPERTIES EXPORT_NAME ${layer} OUTPUT_NAME quillmar-${layer}
    LINKER_LANGUAGE CXX VERSION ${QUILLMAR_ABI_VERSION}.${PROJECT_VERSION_MINOR}.${PROJECT_VERSION_PATCH}
    SOVERSION ${QUILLMAR_ABI_VERSION} LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib
    ARCHIVE_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)
  target_include_directories(${library} PUBLIC $<BUILD_INTERFACE:${QUILLMAR_INCLUDE_DIR}>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  target_compile_features(${library} PUBLIC cxx_std_20)
  # The private libraries are header-only (nlohmann-json): the objects need them, the link does not.
  target_link_libraries(${library} PUBLIC ${publicDepends} ${arg_PUBLIC_LIBS})

  if(BUILD_SHARED_LIBS)
    # A symbol the library uses but the layers below do not export fails the link, not a consumer's start.
    target_link_options(${library} PRIVATE LINKER:--no-undefined)
    add_library(${internal} STATIC $<TARGET_OBJECTS:${objects}>)
    set_target_properties(${internal} PROPERTIES LINKER_LANGUAGE CXX OUTPUT_NAME quillmar-${layer}-internal)
    target_include_directories(${internal} PUBLIC ${PROJECT_SOURCE_DIR} ${QUILLMAR_INCLUDE_DIR})
    target_compile_features(${internal} PUBLIC cxx_std_20)
    target_link_libraries(${internal} PUBLIC ${internalDepends} ${arg_PUBLIC_LIBS} PRIVATE ${arg_PRIVATE_LIBS})
  else()
    # Static, the installed library already is the archive of these objects.
    add_library(${internal} INTERFACE)
    target_include_directories(${internal} INTERFACE ${PROJECT_SOURCE_DIR})
    target_link_libraries(${internal} INTERFACE ${library} ${internalDepends})
  endif()
endfunction()

# quillmar_pkg_config(<layer> <description> <requires> [<cflags>]): quillmar-<layer>.pc for builds that use
# pkg-config. The code needs C++20; as usual with pkg-config, the consumer chooses its -std flag.
function(quillmar_pkg_config layer description requires)
  set(QUILLMAR_PC_NAME quillmar-${layer})
  set(QUILLMAR_PC_DESCRIPTION ${description})
  set(QUILLMAR_PC_REQUIRES ${requires})
  set(QUILLMAR_PC_CFLAGS "${ARGN}")
  if(QUILLMAR_PC_CFLAGS)
    string(PREPEND QUILLMAR_PC_CFLAGS " ")
  endif()
  file(RELATIVE_PATH QUILLMAR_PC_TO_PREFIX /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
  string(REGEX REPLACE "/$" "" QUILLMAR_PC_TO_PREFIX "${QUILLMAR_PC_TO_PREFIX}")
  configure_file(${PROJECT_SOURCE_DIR}/cmake/quillmar.pc.in ${PROJECT_BINARY_DIR}/pkgconfig/quillmar-${layer}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/pkgconfig/quillmar-${layer}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
    COMPONENT dev)
endfunction()

# quillmar_docs(): the `docs` target, the API reference by Doxygen from the public headers' `///` comments.
# A public declaration without a comment is a warning, and a warning fails it. The HTML goes with the
# development files (share/doc/libquillmar-dev/html) once built.
function(quillmar_docs)
  find_package(Doxygen QUIET)
  if(NOT DOXYGEN_FOUND)
    return()
  endif()
  get_property(headers GLOBAL PROPERTY QUILLMAR_PUBLIC_HEADERS)
  list(JOIN headers " " QUILLMAR_DOC_INPUT)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/Doxyfile.in ${PROJECT_BINARY_DIR}/Doxyfile @ONLY)
  add_custom_target(docs COMMAND Doxygen::doxygen ${PROJECT_BINARY_DIR}/Doxyfile
    COMMENT "The API reference in ${PROJECT_BINARY_DIR}/docs/html" VERBATIM)
  install(DIRECTORY ${PROJECT_BINARY_DIR}/docs/html DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/libquillmar-dev
    COMPONENT dev OPTIONAL)
endfunction()

# quillmar_private_module(target): a loadable module that shows the loader its own entry points only: the
# libraries linked into it stay its own, and (outside sanitized builds, whose runtime the loading program
# brings) every symbol it needs is resolved when it is linked.
function(quillmar_private_module target)
  set_target_properties(${target} PROPERTIES PREFIX "" CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
  if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
    target_link_options(${target} PRIVATE -Wl,--exclude-libs,ALL)
    if(NOT CMAKE_CXX_FLAGS MATCHES "-fsanitize")
      target_link_options(${target} PRIVATE -Wl,--no-undefined)
    endif()
  endif()
endfunction()
