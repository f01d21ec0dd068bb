# Cross build for s390x, a big-endian host: Debian's cross compiler, the libraries from a sysroot
# of unpacked s390x packages (EPROM_SYSROOT, made by s390x-sysroot.sh), programs run under qemu.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR s390x)
set(CMAKE_C_COMPILER s390x-linux-gnu-gcc)
set(CMAKE_CXX_COMPILER s390x-linux-gnu-g++)

# The sysroot also reaches CMake's compiler checks, which run with this file but a fresh cache.
if(NOT EPROM_SYSROOT AND DEFINED ENV{EPROM_SYSROOT})
    set(EPROM_SYSROOT "$ENV{EPROM_SYSROOT}")
endif()
if(NOT EPROM_SYSROOT)
    message(FATAL_ERROR "EPROM_SYSROOT must name the s390x sysroot")
endif()
set(ENV{EPROM_SYSROOT} "${EPROM_SYSROOT}")

set(CMAKE_FIND_ROOT_PATH "${EPROM_SYSROOT}")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Qt's libraries need theirs at link time; the sysroot's are not on the cross linker's path.
set(eprom_rpath_link
    "-Wl,-rpath-link,${EPROM_SYSROOT}/usr/lib/s390x-linux-gnu -Wl,-rpath-link,${EPROM_SYSROOT}/lib/s390x-linux-gnu")
set(CMAKE_EXE_LINKER_FLAGS_INIT "${eprom_rpath_link}")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "${eprom_rpath_link}")

# CTest and test discovery run every built program under user-mode emulation.
set(CMAKE_CROSSCOMPILING_EMULATOR "qemu-s390x;-L;${EPROM_SYSROOT}")
