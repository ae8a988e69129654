# Objective-C over GNUstep: the target gnustep has its flags, its headers and Foundation.
# CMake finds the compilers of the languages here, so include it where they are used.
find_program(CMAKE_OBJC_COMPILER gcc REQUIRED)
find_program(CMAKE_OBJCXX_COMPILER g++ REQUIRED)
enable_language(OBJC)
enable_language(OBJCXX)
set(CMAKE_OBJCXX_STANDARD 17)
set(CMAKE_OBJCXX_STANDARD_REQUIRED ON)

find_path(GNUSTEP_INCLUDE_DIR AppKit/AppKit.h PATHS /usr/include/GNUstep REQUIRED)
set(gnustep_flags
    -DGNUSTEP -DGNUSTEP_BASE_LIBRARY=1 -DGNU_GUI_LIBRARY=1 -DGNU_RUNTIME=1
    -D_NATIVE_OBJC_EXCEPTIONS -fobjc-exceptions -fexceptions
    -fconstant-string-class=NSConstantString)
add_library(gnustep INTERFACE)
target_include_directories(gnustep SYSTEM INTERFACE ${GNUSTEP_INCLUDE_DIR})
target_compile_options(gnustep INTERFACE
    "$<$<COMPILE_LANGUAGE:OBJC,OBJCXX>:${gnustep_flags}>"
    # Without it, Objective-C is compiled as C of 1990.
    $<$<COMPILE_LANGUAGE:OBJC>:-std=gnu11>)
target_link_libraries(gnustep INTERFACE gnustep-base objc)
