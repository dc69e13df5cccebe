# Writes the version as one line of text into a source file, when it is another one than before. Runs at
# every build, because the commit changes without CMake being asked again.
#
#   cmake -Dsource=<folder> -Doutput=<file> -Dversion=<number> -P version.cmake

# Only the project's own repository is asked, not one that happens to lie around an unpacked archive.
execute_process(COMMAND git -C ${source} rev-parse --show-prefix
    OUTPUT_VARIABLE folder_in_repository RESULT_VARIABLE failure ERROR_QUIET
    OUTPUT_STRIP_TRAILING_WHITESPACE)
set(commit unknown)
if("${failure}" STREQUAL 0 AND folder_in_repository STREQUAL "")
    execute_process(COMMAND git -C ${source} describe --tags --always --dirty
        OUTPUT_VARIABLE described RESULT_VARIABLE failure ERROR_QUIET OUTPUT_STRIP_TRAILING_WHITESPACE)
    if(failure EQUAL 0)
        set(commit "${described}")
    endif()
endif()

file(CONFIGURE OUTPUT ${output} @ONLY CONTENT [[
#include "common/version.h"

#include <QtGlobal>

const char versionText[] = "filebrowser @version@ (source @commit@, Qt " QT_VERSION_STR ")";
]])
