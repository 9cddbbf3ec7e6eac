# The package carries the date of the commit that it is made of, so that the same commit gives the same
# bytes (https://reproducible-builds.org/docs/source-date-epoch/). CPack reads this as it starts.

if(NOT DEFINED ENV{SOURCE_DATE_EPOCH})
  execute_process(COMMAND git log -1 --format=%ct WORKING_DIRECTORY ${CMAKE_CURRENT_LIST_DIR}
                  OUTPUT_VARIABLE date OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
  if(date)
    set(ENV{SOURCE_DATE_EPOCH} ${date})
  endif()
endif()
