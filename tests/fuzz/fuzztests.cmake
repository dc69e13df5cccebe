# Builds the fuzz tests beside the rest, with a compiler of their own, and has CTest run them briefly.

find_program(FILEBROWSER_CLANGXX clang++ DOC "clang++ with libFuzzer, for the fuzz tests")
set(has_fuzzer 1)
if(FILEBROWSER_CLANGXX)
    execute_process(
        COMMAND ${CMAKE_COMMAND} -E echo "extern \"C\" int LLVMFuzzerTestOneInput() { return 0; }"
        COMMAND ${FILEBROWSER_CLANGXX} -fsanitize=fuzzer,address -x c++ - -o ${PROJECT_BINARY_DIR}/fuzzer-probe
        RESULT_VARIABLE has_fuzzer ERROR_QUIET)
endif()
if(NOT has_fuzzer EQUAL 0)
    message(STATUS "No clang++ with libFuzzer: no fuzz tests")
    return()
endif()

include(ExternalProject)
ExternalProject_Add(fuzz
    SOURCE_DIR ${CMAKE_CURRENT_LIST_DIR}
    BINARY_DIR ${PROJECT_BINARY_DIR}/fuzz
    CMAKE_ARGS -DCMAKE_CXX_COMPILER=${FILEBROWSER_CLANGXX} -DQT_QMAKE_EXECUTABLE=${QT_QMAKE_EXECUTABLE}
    BUILD_ALWAYS ON
    INSTALL_COMMAND ""
)
# Seeds by name, because libFuzzer adds what it learns to a folder it is given.
file(GLOB seeds CONFIGURE_DEPENDS ${CMAKE_CURRENT_LIST_DIR}/mounttable/*)
string(REPLACE ";" "," seeds "${seeds}")
add_test(NAME fuzz_mounttable COMMAND ${PROJECT_BINARY_DIR}/fuzz/fuzz_mounttable
    -runs=20000 -seed=1 -max_len=20000 -timeout=20 -seed_inputs=${seeds}
    -dict=${CMAKE_CURRENT_LIST_DIR}/mounttable.dict)
