# Where things are installed. Everything is relative to the prefix, so that --prefix as well as DESTDIR
# leads all of it into a stage.
#   FILEBROWSER_QML_DIR  folder of the QML modules, below the prefix; an absolute one outside of this Qt's
#                        own prefix is taken as it is, and only DESTDIR moves it

function(ask_qmake property variable)
    execute_process(COMMAND ${FILEBROWSER_QMAKE} -query ${property}
        OUTPUT_VARIABLE answer OUTPUT_STRIP_TRAILING_WHITESPACE)
    set(${variable} ${answer} PARENT_SCOPE)
endfunction()

ask_qmake(QT_INSTALL_PREFIX qt_prefix)
if(FILEBROWSER_QT_LINE EQUAL 4)
    ask_qmake(QT_INSTALL_IMPORTS qml_dir)
else()
    ask_qmake(QT_INSTALL_QML qml_dir)
endif()
if(qt_prefix AND qml_dir)
    file(RELATIVE_PATH qml_dir "${qt_prefix}" "${qml_dir}")
elseif(NOT FILEBROWSER_QML_DIR)
    message(FATAL_ERROR "${FILEBROWSER_QMAKE} can't be asked here where its Qt looks for QML modules: "
        "give FILEBROWSER_QML_DIR, a folder below the prefix.")
endif()
# Debian's qmake for another architecture is this machine's, and answers for this machine.
if(CMAKE_CROSSCOMPILING AND CMAKE_LIBRARY_ARCHITECTURE)
    string(REGEX REPLACE "^lib/[^/]*-linux-gnu[^/]*/" "lib/${CMAKE_LIBRARY_ARCHITECTURE}/" qml_dir "${qml_dir}")
endif()
set(FILEBROWSER_QML_DIR "${qml_dir}" CACHE STRING "Folder of the QML modules, below the prefix")
string(REGEX REPLACE "^${qt_prefix}/" "" FILEBROWSER_QML_DIR "${FILEBROWSER_QML_DIR}")

# Where this Qt looks, unless it is the Qt of another machine: what is built for that must not end up in
# the folders of this one.
if(CMAKE_INSTALL_PREFIX_INITIALIZED_TO_DEFAULT)
    if(CMAKE_CROSSCOMPILING)
        set(qt_prefix ${PROJECT_BINARY_DIR}/stage)
    endif()
    set(CMAKE_INSTALL_PREFIX ${qt_prefix} CACHE PATH "Where everything is installed" FORCE)
endif()
