# Read by cpack before each kind of package.

if(CPACK_GENERATOR STREQUAL TGZ)
    set(CPACK_COMPONENTS_ALL module)
    set(CPACK_COMPONENTS_GROUPING IGNORE)
    set(CPACK_COMPONENT_INCLUDE_TOPLEVEL_DIRECTORY OFF)
elseif(CPACK_GENERATOR STREQUAL DEB)
    set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
    set(CPACK_COMPONENTS_ALL module module_papers)
    if(CPACK_FILEBROWSER_WITH_VIEWER)
        list(APPEND CPACK_COMPONENTS_ALL viewer)

        # The packages of the modules that the screens import, as Qt's scanner and dpkg tell.
        execute_process(COMMAND ${CPACK_FILEBROWSER_QMAKE} -query QT_INSTALL_BINS
            OUTPUT_VARIABLE bins OUTPUT_STRIP_TRAILING_WHITESPACE)
        execute_process(COMMAND ${CPACK_FILEBROWSER_QMAKE} -query QT_INSTALL_QML
            OUTPUT_VARIABLE modules OUTPUT_STRIP_TRAILING_WHITESPACE)
        execute_process(COMMAND ${bins}/qmlimportscanner -rootPath ${CPACK_FILEBROWSER_SCREENS}
            -importPath ${modules} OUTPUT_VARIABLE imports)
        string(REGEX MATCHALL "\"path\": \"${modules}/[^\"]*\"" paths "${imports}")
        foreach(path ${paths})
            string(REGEX REPLACE ".*\"(.*)\"" "\\1/qmldir" path "${path}")
            execute_process(COMMAND dpkg-query --search ${path} OUTPUT_VARIABLE owner)
            string(REGEX REPLACE ":.*" "" owner "${owner}")
            list(APPEND packages ${owner})
        endforeach()
        list(REMOVE_DUPLICATES packages)
        if(NOT packages)
            message(FATAL_ERROR "no package has the modules that the screens import")
        endif()
        string(REPLACE ";" ", " CPACK_DEBIAN_VIEWER_GROUP_PACKAGE_DEPENDS "${packages}")
    endif()
endif()
