# Script: writes OUTPUT from TEMPLATE with VERSION and the commit of the sources in SOURCE. A file that would be the same
# is left alone, so that nothing is compiled again.
set(COMMIT "")
if(EXISTS "${SOURCE}/.git")
  execute_process(COMMAND git -C "${SOURCE}" rev-parse --short=12 HEAD
                  OUTPUT_VARIABLE commit OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET RESULT_VARIABLE failed)
  if(failed EQUAL 0)
    execute_process(COMMAND git -C "${SOURCE}" diff --quiet HEAD -- RESULT_VARIABLE changed ERROR_QUIET)
    if(NOT changed EQUAL 0)
      string(APPEND commit "+")
    endif()
    set(COMMIT " (${commit})")
  endif()
endif()
configure_file("${TEMPLATE}" "${OUTPUT}" @ONLY)
