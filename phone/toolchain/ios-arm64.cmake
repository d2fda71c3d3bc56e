# The phone: arm64, iOS 7.0 and later, built with Debian's clang, lld and
# libc++ 14 against the declarations and link stubs in phone/sysroot alone.

set(CMAKE_SYSTEM_NAME iOS)
set(CMAKE_SYSTEM_PROCESSOR arm64)
set(CMAKE_OSX_ARCHITECTURES arm64)
set(CMAKE_OSX_DEPLOYMENT_TARGET 7.0)

# CMake accepts an iOS sysroot only if its path names iPhoneOS.
get_filename_component(TESSEL_PHONE_SYSROOT "${CMAKE_CURRENT_LIST_DIR}/../sysroot/iPhoneOS" ABSOLUTE)
set(CMAKE_OSX_SYSROOT "${TESSEL_PHONE_SYSROOT}")

set(TESSEL_PHONE_TARGET arm64-apple-ios7.0)
set(CMAKE_CXX_COMPILER clang++-14)
set(CMAKE_CXX_COMPILER_TARGET ${TESSEL_PHONE_TARGET})
set(CMAKE_AR llvm-ar-14)
set(CMAKE_RANLIB llvm-ranlib-14)
set(CMAKE_INSTALL_NAME_TOOL llvm-install-name-tool-14)

# Headers, in this order: the availability overlay (libc++'s site
# configuration with the phone's availability markings on), libc++ itself,
# then the phone's C declarations that libc++'s C wrappers reach through
# include_next. Nothing of the build machine's own headers is searched.
set(TESSEL_PHONE_AVAILABILITY_OVERLAY "${TESSEL_PHONE_SYSROOT}/usr/include/c++/availability")
set(TESSEL_PHONE_LIBCXX_HEADERS /usr/lib/llvm-14/include/c++/v1)
set(TESSEL_PHONE_C_HEADERS "${TESSEL_PHONE_SYSROOT}/usr/include")
set(CMAKE_CXX_FLAGS_INIT
    "-nostdinc++ -nostdlibinc -isystem ${TESSEL_PHONE_AVAILABILITY_OVERLAY} -isystem ${TESSEL_PHONE_LIBCXX_HEADERS} -isystem ${TESSEL_PHONE_C_HEADERS}")

# lld, libc++ (the driver would otherwise ask for libstdc++), and the stubs
# under the sysroot as the only libraries there are. The header flags above
# reach the link line too, where they mean nothing.
set(TESSEL_PHONE_LINK_FLAGS "-fuse-ld=lld -stdlib=libc++ -Wno-unused-command-line-argument")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "${TESSEL_PHONE_LINK_FLAGS}")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "${TESSEL_PHONE_LINK_FLAGS}")
set(CMAKE_EXE_LINKER_FLAGS_INIT "${TESSEL_PHONE_LINK_FLAGS}")

# Nothing of the build machine's compiler environment reaches in: clang
# would add LIBRARY_PATH to the link's search paths, CPATH and its kin to the
# header search, and take a deployment target from the environment.
set(TESSEL_PHONE_CLEAN_ENVIRONMENT env -u LIBRARY_PATH -u CPATH -u C_INCLUDE_PATH -u CPLUS_INCLUDE_PATH
    -u OBJC_INCLUDE_PATH -u OBJCPLUS_INCLUDE_PATH -u SDKROOT -u IPHONEOS_DEPLOYMENT_TARGET)
set(CMAKE_CXX_COMPILER_LAUNCHER ${TESSEL_PHONE_CLEAN_ENVIRONMENT})
set(CMAKE_CXX_LINKER_LAUNCHER ${TESSEL_PHONE_CLEAN_ENVIRONMENT})

# Probing compilers must not need a linked executable.
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)

set(CMAKE_FIND_ROOT_PATH "${TESSEL_PHONE_SYSROOT}")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
