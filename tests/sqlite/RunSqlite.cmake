# Runs SCRIPT in the sqlite3 program with the extension MODULE loaded and @form set to FORM, and compares
# what it prints, errors included (the form's path as FORM), with EXPECTED.
execute_process(
  COMMAND ${SQLITE3} -batch -cmd ".load ${MODULE}" -cmd ".parameter set @form \"'${FORM}'\"" :memory:
  INPUT_FILE ${SCRIPT}
  OUTPUT_VARIABLE output ERROR_VARIABLE errors RESULT_VARIABLE status)
file(READ ${EXPECTED} expected)
string(REPLACE "\r" "" output "${output}${errors}")
string(REPLACE "${FORM}" "FORM" output "${output}")
if(NOT output STREQUAL expected)
  message(FATAL_ERROR "sqlite3 printed (status ${status}):\n${output}\nexpected:\n${expected}")
endif()
