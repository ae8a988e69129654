# mac_test(TARGET SOURCES ... LIBRARIES ...): adds a test program with the macOS files. Over GNUstep
# each run has its own home folder and display.
add_library(macsupport OBJECT support/AppKitSession.mm)
if(APPLE)
    target_sources(macsupport PRIVATE support/AppleMain.mm support/Display_Apple.cpp)
else()
    target_sources(macsupport PRIVATE
        support/Display_GNUstep.cpp support/GNUstepHome.cpp support/GNUstepMain.mm
        support/StandInApplication.mm support/Workspace.mm support/XvfbDisplay.cpp)
endif()
typeloft_target(macsupport)
target_include_directories(macsupport PUBLIC support)
target_compile_definitions(macsupport PUBLIC
    TYPELOFT_OVER_GNUSTEP=$<NOT:$<BOOL:${APPLE}>> TYPELOFT_CASE_IS_A_PROCESS)
target_link_libraries(macsupport PUBLIC testsupport typeloftplatform GTest::gmock)

function(mac_test target)
    cmake_parse_arguments(arg "" "" "SOURCES;LIBRARIES" ${ARGN})
    add_executable(${target} ${arg_SOURCES})
    typeloft_target(${target})
    target_link_libraries(${target} PRIVATE ${arg_LIBRARIES} macsupport)
    set_target_properties(${target} PROPERTIES ENABLE_EXPORTS ON LINKER_LANGUAGE CXX)
    gtest_discover_tests(${target} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 60 LABELS mac)
endfunction()
