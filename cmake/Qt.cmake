# The Qt line to build for. A Qt 4.8 SDK is chosen by its qmake, Debian's Qt 5.15 is the default.
# Everything that differs between the lines in the build stands in this file:
#   filebrowser_qt       the Qt libraries of the product
#   filebrowser_qt_test  Qt's test library on top
#   FILEBROWSER_QMAKE    the qmake of this Qt, which knows its folders
#   filebrowser_add_resources(<variable> <file.qrc>)

set(QT_QMAKE_EXECUTABLE "" CACHE FILEPATH "qmake of a Qt 4.8 SDK; empty for Qt 5.15")

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
    find_package(Qt5 5.15 REQUIRED COMPONENTS Core Gui Widgets Qml Quick QuickWidgets Test)
    set(FILEBROWSER_QT_LINE 5)
    target_link_libraries(filebrowser_qt
        INTERFACE Qt5::Core Qt5::Gui Qt5::Widgets Qt5::Qml Qt5::Quick Qt5::QuickWidgets)
    target_link_libraries(filebrowser_qt_test INTERFACE Qt5::Test)
    get_target_property(FILEBROWSER_QMAKE Qt5::qmake IMPORTED_LOCATION)

    macro(filebrowser_add_resources variable qrc)
        qt5_add_resources(${variable} ${qrc} OPTIONS --format-version 1 -no-compress)
    endmacro()
endif()
