# typeloft_target(TARGET): sets the options that all targets of the project share.
function(typeloft_target target)
    target_compile_features(${target} PUBLIC cxx_std_17)
    set_target_properties(${target} PROPERTIES
        CXX_EXTENSIONS OFF
        POSITION_INDEPENDENT_CODE ON
        C_VISIBILITY_PRESET hidden
        CXX_VISIBILITY_PRESET hidden
        OBJC_VISIBILITY_PRESET hidden
        OBJCXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON)
    # __FILE__ is relative to the project, so that binaries contain no path of the build machine.
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow
        -fmacro-prefix-map=${PROJECT_SOURCE_DIR}/=)
    # Documents come from anywhere, so that a release has the checks that Debian's packages have.
    if(TYPELOFT_HARDENING AND TYPELOFT_PLATFORM STREQUAL Linux)
        target_compile_options(${target} PRIVATE $<$<CONFIG:Release>:-fstack-protector-strong
            -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2>)
        target_link_options(${target} PRIVATE $<$<CONFIG:Release>:LINKER:-z,relro,-z,now>)
    endif()
    if(TYPELOFT_WERROR)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
    if(TYPELOFT_SANITIZE)
        target_compile_options(${target} PRIVATE
            -fsanitize=${TYPELOFT_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
        target_link_options(${target} PUBLIC -fsanitize=${TYPELOFT_SANITIZE})
    endif()
endfunction()

# typeloft_library(TARGET SOURCE...): adds a static library whose folder is its include folder.
function(typeloft_library target)
    add_library(${target} STATIC ${ARGN})
    typeloft_target(${target})
    target_include_directories(${target} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
endfunction()
