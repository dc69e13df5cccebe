# Says what is wrong with the qmake that was given, before CMake tries compilers and modules of its own.

if(QT_QMAKE_EXECUTABLE)
    execute_process(COMMAND ${QT_QMAKE_EXECUTABLE} -query QT_VERSION
        OUTPUT_VARIABLE version RESULT_VARIABLE failure ERROR_QUIET OUTPUT_STRIP_TRAILING_WHITESPACE)
    if(NOT "${failure}" STREQUAL 0 OR version STREQUAL "")
        message(FATAL_ERROR "QT_QMAKE_EXECUTABLE=${QT_QMAKE_EXECUTABLE} is no qmake that can be run here: "
            "give the path of the qmake of a Qt 4.8.")
    elseif(NOT version MATCHES "^4\\.8\\.")
        message(FATAL_ERROR "QT_QMAKE_EXECUTABLE=${QT_QMAKE_EXECUTABLE} is the qmake of Qt ${version}: "
            "only a Qt 4.8 is chosen by its qmake.")
    endif()
endif()
