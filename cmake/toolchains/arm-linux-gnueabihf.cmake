# Builds for a 32-bit ARM with Debian's cross compiler (package g++-arm-linux-gnueabihf), with libraries
# and headers from a copy of the device's file system:
#
#   cmake -DCMAKE_TOOLCHAIN_FILE=cmake/toolchains/arm-linux-gnueabihf.cmake -DDEVICE_SYSROOT=<folder> ...
#
# For the SDK of another device it is a sample: names of the compiler, its flags, the place of the sysroot.

set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR arm)
set(CMAKE_CXX_COMPILER arm-linux-gnueabihf-g++)

set(DEVICE_SYSROOT "" CACHE PATH "Copy of the device's file system")
set(CMAKE_SYSROOT "${DEVICE_SYSROOT}")
# What CMake tries the compiler with is a project of its own, which is not told of options.
set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES DEVICE_SYSROOT)

# A Qt that is chosen by its qmake need not lie in the sysroot.
if(QT_QMAKE_EXECUTABLE)
    get_filename_component(CMAKE_FIND_ROOT_PATH "${QT_QMAKE_EXECUTABLE}/../.." ABSOLUTE)
endif()

# Programs are this machine's, all else is the device's.
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
