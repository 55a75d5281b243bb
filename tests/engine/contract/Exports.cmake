# SPDX-License-Identifier: BSD-3-Clause
# Fails unless the dynamic symbols that LIBRARY defines are the functions of the C contract.
set(expected
  FATIGUE_PW_OPTI FAT_DCMP_PROPS FHT_GETDEFPROPS INSITU_STATUS PREFAIL SETISOFLAG SETMAXERROR
  UNI_OPTIMIZATION WEAVE_DAMAGE_STATE WEAVE_OPTIMIZATION WEAVE_PREFAIL)
execute_process(COMMAND ${NM} -D --defined-only --format=posix ${LIBRARY}
  OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "[^\n]+" lines "${output}")
set(found "")
foreach(line IN LISTS lines)
  string(REGEX REPLACE " .*" "" name "${line}")
  list(APPEND found ${name})
endforeach()
list(SORT found)
list(SORT expected)
if(NOT found STREQUAL expected)
  message(FATAL_ERROR "exported: ${found}\nexpected: ${expected}")
endif()
