# Builds for macOS on Linux: clang and lld over the folder that make-sdk makes. Both architectures
# are compiled in one run of the compiler.
set(CMAKE_SYSTEM_NAME Darwin)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

get_filename_component(project ${CMAKE_CURRENT_LIST_DIR}/../.. ABSOLUTE)
set(deps ${project}/.deps/mac-cross)
set(CMAKE_OSX_SYSROOT ${deps}/sdk CACHE PATH "The folder that stands for an SDK")
set(CMAKE_OSX_ARCHITECTURES "x86_64;arm64" CACHE STRING "The slices")
set(CMAKE_OSX_DEPLOYMENT_TARGET 10.15 CACHE STRING "The minimum of x86_64")

find_program(clang clang-14 REQUIRED)
foreach(language C OBJC)
    set(CMAKE_${language}_COMPILER ${clang})
endforeach()
find_program(clangxx clang++-14 REQUIRED)
foreach(language CXX OBJCXX)
    set(CMAKE_${language}_COMPILER ${clangxx})
    # Without -stdlib++-isystem, clang prefers the libc++ of this machine. The headers come without
    # their file of settings.
    string(CONCAT CMAKE_${language}_FLAGS_INIT
        "-stdlib=libc++ -stdlib++-isystem ${deps}/sdk/usr/include/c++/v1"
        " -D_LIBCPP_ABI_VERSION=1 -D_LIBCPP_ABI_NAMESPACE=__1")
endforeach()
foreach(language C CXX OBJC OBJCXX)
    set(CMAKE_${language}_COMPILER_TARGET x86_64-apple-darwin)
    # -B: where clang finds lipo.
    string(APPEND CMAKE_${language}_FLAGS_INIT " -B${deps}/bin -Wunguarded-availability")
    # llvm-ar cannot write an archive with two architectures.
    set(CMAKE_${language}_CREATE_STATIC_LIBRARY
        "<CMAKE_COMMAND> -E rm -f <TARGET>" "${deps}/bin/libtool -static -o <TARGET> <OBJECTS>")
endforeach()
foreach(language OBJC OBJCXX)
    string(APPEND CMAKE_${language}_FLAGS_INIT " -Wundeclared-selector")
endforeach()
set(CMAKE_INSTALL_NAME_TOOL ${deps}/bin/install_name_tool)
foreach(kind EXE SHARED MODULE)
    set(CMAKE_${kind}_LINKER_FLAGS_INIT
        "--ld-path=${project}/tools/mac-cross/link -mlinker-version=700")
endforeach()
# Nothing of this machine is found by accident.
set(CMAKE_FIND_ROOT_PATH ${deps}/sdk)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
