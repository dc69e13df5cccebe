# The Qt line to build for. A Qt 4.8 SDK is chosen by its qmake, Debian's Qt 6 by FILEBROWSER_QT, its
# Qt 5.15 is the default. Everything that differs between the lines in the build stands in this file:
#   FILEBROWSER_QT_LINE  4, 5 or 6
#   filebrowser_qt       the Qt libraries of the product
#   filebrowser_qt_test  Qt's test library on top
#   FILEBROWSER_QMAKE    the qmake of this Qt, which knows its folders
#   filebrowser_add_resources(<variable> <file.qrc>)

set(QT_QMAKE_EXECUTABLE "" CACHE FILEPATH "qmake of a Qt 4.8 SDK; empty for FILEBROWSER_QT")
set(FILEBROWSER_QT 5 CACHE STRING "Qt to build for without a qmake: 5 or 6")
set_property(CACHE FILEBROWSER_QT PROPERTY STRINGS 5 6)
if(NOT FILEBROWSER_QT MATCHES "^[56]$")
    message(FATAL_ERROR "FILEBROWSER_QT is ${FILEBROWSER_QT}; it can be 5 or 6")
endif()

add_library(filebrowser_qt INTERFACE)
add_library(filebrowser_qt_test INTERFACE)
target_link_libraries(filebrowser_qt_test INTERFACE filebrowser_qt)

if(QT_QMAKE_EXECUTABLE)
    find_package(Qt4 4.8 REQUIRED QtCore QtGui QtDeclarative QtTest)
    set(FILEBROWSER_QT_LINE 4)
    target_link_libraries(filebrowser_qt INTERFACE Qt4::QtCore Qt4::QtGui Qt4::QtDeclarative)
    target_link_libraries(filebrowser_qt_test INTERFACE Qt4::QtTest)
    set(FILEBROWSER_QMAKE ${QT_QMAKE_EXECUTABLE})

    # Qt 4.8's rcc writes format version 1 and takes no option for it.
    macro(filebrowser_add_resources variable qrc)
        qt4_add_resources(${variable} ${qrc} OPTIONS -no-compress)
    endmacro()
else()
    set(FILEBROWSER_QT_LINE ${FILEBROWSER_QT})
    set(qt Qt${FILEBROWSER_QT})
    set(oldest_of_5 5.15)
    set(oldest_of_6 6.4)
    find_package(${qt} ${oldest_of_${FILEBROWSER_QT}} REQUIRED
        COMPONENTS Core Gui Widgets Qml Quick QuickWidgets Test)
    target_link_libraries(filebrowser_qt INTERFACE
        ${qt}::Core ${qt}::Gui ${qt}::Widgets ${qt}::Qml ${qt}::Quick ${qt}::QuickWidgets)
    target_link_libraries(filebrowser_qt_test INTERFACE ${qt}::Test)
    get_target_property(FILEBROWSER_QMAKE ${qt}::qmake IMPORTED_LOCATION)
    if(FILEBROWSER_QT_LINE EQUAL 6)
        set(CMAKE_CXX_STANDARD 17) # Qt 6's headers are written in it
    endif()

    macro(filebrowser_add_resources variable qrc)
        if(FILEBROWSER_QT_LINE EQUAL 6)
            qt6_add_resources(${variable} ${qrc} OPTIONS --format-version 1 -no-compress)
        else()
            qt5_add_resources(${variable} ${qrc} OPTIONS --format-version 1 -no-compress)
        endif()
    endmacro()
endif()
