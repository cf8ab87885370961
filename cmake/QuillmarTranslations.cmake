# The product's translations: the Qt catalogue of the control's messages (quillmar_texts), and the function
# that builds a library's Qt Linguist sources (i18n/<library>_<language>.ts) into .qm files embedded in it
# under :/i18n/quillmar, where quillmar::InstallTranslations finds them. Each .ts also gets a pseudo-
# translation that brackets every text ("[Quantity]"), for the tests that look for texts left untranslated.
find_package(Qt6 6.2 REQUIRED COMPONENTS Core LinguistTools)
find_package(Python3 REQUIRED COMPONENTS Interpreter)

quillmar_add_library(texts EXPORT_HEADER TextsExport.h
  DEPENDS core
  PUBLIC_LIBS Qt6::Core
  SOURCES
  ${PROJECT_SOURCE_DIR}/i18n/QuillmarTranslations.cpp
  ${PROJECT_SOURCE_DIR}/i18n/QuillmarTranslations.h)
quillmar_public_headers(i18n/QuillmarTranslations.h)

# Every embedded translation's resource target, for the install export of static libraries.
set_property(GLOBAL PROPERTY QUILLMAR_TRANSLATION_TARGETS "")
set(QUILLMAR_PSEUDO_DIR ${PROJECT_BINARY_DIR}/i18n/pseudo)

# quillmar_embed_translations(<target> <library>): i18n/<library>_*.ts into <target>'s resources (for a
# Quillmar layer, into its installed library and the internal archive of the same objects), and
# <library>_pseudo.qm into ${QUILLMAR_PSEUDO_DIR}.
function(quillmar_embed_translations target library)
  if(TARGET quillmar_${target}_objects)
    set(targets quillmar_${target})
    if(BUILD_SHARED_LIBS)
      list(APPEND targets quillmar_${target}_internal)
    endif()
  else()
    set(targets ${target})
  endif()
  list(GET targets 0 first_target)
  file(GLOB ts_files ${PROJECT_SOURCE_DIR}/i18n/${library}_*.ts)
  set(qm_dir ${CMAKE_CURRENT_BINARY_DIR}/i18n/quillmar)
  set_source_files_properties(${ts_files} PROPERTIES OUTPUT_LOCATION ${qm_dir})
  qt_add_lrelease(${first_target} TS_FILES ${ts_files} QM_FILES_OUTPUT_VARIABLE qm_files OPTIONS -silent)
  foreach(each IN LISTS targets)
    qt_add_resources(${each} ${each}_translations PREFIX /i18n/quillmar BASE ${qm_dir} FILES ${qm_files}
      OUTPUT_TARGETS resource_targets)
    set_property(GLOBAL APPEND PROPERTY QUILLMAR_TRANSLATION_TARGETS ${resource_targets})
  endforeach()
  set(target ${first_target})

  list(GET ts_files 0 first_ts)
  set(pseudo_ts ${QUILLMAR_PSEUDO_DIR}/${library}_pseudo.ts)
  set(pseudo_qm ${QUILLMAR_PSEUDO_DIR}/${library}_pseudo.qm)
  add_custom_command(OUTPUT ${pseudo_qm}
    COMMAND Python3::Interpreter ${PROJECT_SOURCE_DIR}/tools/pseudo-translate.py ${first_ts} ${pseudo_ts}
    COMMAND Qt6::lrelease -silent ${pseudo_ts} -qm ${pseudo_qm}
    DEPENDS ${first_ts} ${PROJECT_SOURCE_DIR}/tools/pseudo-translate.py
    COMMENT "Pseudo-translating ${library}")
  add_custom_target(${target}_pseudo DEPENDS ${pseudo_qm})
  add_dependencies(${target} ${target}_pseudo)
endfunction()

quillmar_embed_translations(texts control)
