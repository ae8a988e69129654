# Chooses the files with a platform suffix that are compiled, and the libraries that they need.
#
# macOS uses the _Mac files. TYPELOFT_MAC_HALF uses them on another system: GNUstep replaces
# Foundation and AppKit, and a stand-in from tests/mac replaces CoreFoundation.
option(TYPELOFT_MACH_O "Run the bundle for macOS in the headless host; x86_64 Linux only" OFF)
option(TYPELOFT_MAC_HALF "Compile the macOS files over GNUstep, for their tests" OFF)

if(APPLE OR TYPELOFT_MAC_HALF)
    set(TYPELOFT_PLATFORM Mac)
    if(APPLE)
        enable_language(OBJC)
        enable_language(OBJCXX)
        set(CMAKE_OBJCXX_STANDARD 17)
        set(CMAKE_OBJCXX_STANDARD_REQUIRED ON)
    else()
        # GNUstep is built for the Objective-C runtime of gcc.
        include(GNUstep)
    endif()
else()
    set(TYPELOFT_PLATFORM Linux)
endif()

# The libraries and flags that every target with platform files needs.
add_library(typeloftplatform INTERFACE)
if(APPLE)
    target_link_libraries(typeloftplatform INTERFACE
        "-framework AppKit" "-framework Foundation" "-framework CoreServices"
        "-framework CoreFoundation" objc)
elseif(TYPELOFT_MAC_HALF)
    # Defines a name that GNUstep has only in its older form.
    set(newer_names ${PROJECT_SOURCE_DIR}/tests/mac/gnustep/NewerNames.h)
    target_compile_options(typeloftplatform INTERFACE
        "$<$<COMPILE_LANGUAGE:OBJC,OBJCXX>:SHELL:-include ${newer_names}>")
    target_link_libraries(typeloftplatform INTERFACE
        corefoundationstandin gnustep-gui gnustep)
else()
    find_package(PkgConfig REQUIRED)
    pkg_check_modules(PLIST REQUIRED IMPORTED_TARGET GLOBAL libplist-2.0)
    target_link_libraries(typeloftplatform INTERFACE PkgConfig::PLIST ${CMAKE_DL_LIBS})
endif()

# typeloft_platform_sources(TARGET LINUX files... MAC files...): adds the files of the platform.
function(typeloft_platform_sources target)
    cmake_parse_arguments(arg "" "" "LINUX;MAC" ${ARGN})
    string(TOUPPER ${TYPELOFT_PLATFORM} platform)
    target_sources(${target} PRIVATE ${arg_${platform}})
    target_link_libraries(${target} PUBLIC typeloftplatform)
endfunction()

# typeloft_export_only(TARGET NAME...): exports only these symbols from a module.
function(typeloft_export_only target)
    set(script ${CMAKE_CURRENT_BINARY_DIR}/${target}.exports)
    if(APPLE)
        list(TRANSFORM ARGN PREPEND _)
        list(JOIN ARGN "\n" names)
        file(CONFIGURE OUTPUT ${script} CONTENT "${names}\n")
        target_link_options(${target} PRIVATE -Wl,-exported_symbols_list,${script})
    else()
        list(JOIN ARGN "; " names)
        file(CONFIGURE OUTPUT ${script} CONTENT "{ global: ${names}; local: *; };\n")
        target_link_options(${target} PRIVATE -Wl,--version-script=${script})
    endif()
    set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${script})
endfunction()
