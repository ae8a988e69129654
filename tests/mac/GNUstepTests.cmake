# Builds only those frameworks folders of the event bus that these tests use.
function(use_plug_plug target)
    foreach(property INCLUDE_DIRECTORIES COMPILE_DEFINITIONS)
        set_property(TARGET ${target} APPEND PROPERTY
            ${property} $<TARGET_PROPERTY:scriptedplugplug,INTERFACE_${property}>)
    endforeach()
    foreach(library both-PlugPlugOwl both-PlugPlug plain-only-PlugPlug
            owl-not-a-library-PlugPlug missing-PlugPlugRemoveEventListener-PlugPlugOwl)
        add_dependencies(${target} scriptedplugplug-${library})
    endforeach()
endfunction()

# These tests need the stand-ins for CoreFoundation, for the workspace or for system functions.
target_sources(mac-only-test PRIVATE
    only/CalendarFailuresTest.cpp only/LibraryFolderTest.mm only/MissingPoolTest.mm
    only/ReferencesTest.cpp only/RunningApplicationsTest.cpp)
target_sources(mac-foundation-test PRIVATE ${foundation_tests}/locks/SystemHelpersTest.cpp)
target_link_libraries(mac-foundation-test PRIVATE scriptedsystemcalls)

# Sends messages to the plug-in with the macOS files.
set(artefacts ${CMAKE_CURRENT_BINARY_DIR}/artefacts)
file(MAKE_DIRECTORY ${artefacts})
mac_test(mac-messages-test
    SOURCES ${platform} ${plugin_tests}/src/MessageFixture.cpp
        messages/MacPanelTest.cpp messages/ScreenshotTest.mm messages/MacStartupTest.cpp
    LIBRARIES ${doubles} typeloft)
target_include_directories(mac-messages-test PRIVATE
    contract ${plugin_tests}/src ${plugin_tests}/src/panel-link)
target_compile_definitions(mac-messages-test PRIVATE ARTEFACTS="${artefacts}")

use_plug_plug(mac-messages-test)

# Loads the module; none of the plug-in's code is linked.
mac_test(mac-module-test
    SOURCES ${platform} bundle/CheckBundle.mm messages/ModuleTest.cpp
    LIBRARIES scriptedhost)
target_include_directories(mac-module-test PRIVATE bundle contract)
target_compile_definitions(mac-module-test PRIVATE
    PLUGIN_MODULE="$<TARGET_FILE:TypeloftSPEA>"
    PLUGIN_BUNDLE="$<TARGET_FILE_DIR:TypeloftSPEA>"
    $<TARGET_PROPERTY:scriptedplugincore,INTERFACE_COMPILE_DEFINITIONS>)
add_dependencies(mac-module-test TypeloftSPEA)

foreach(variant complete version-refused missing-ShouldShowLogin)
    add_dependencies(mac-messages-test scriptedplugincore-${variant})
    add_dependencies(mac-module-test scriptedplugincore-${variant})
endforeach()

find_program(CLANG_TIDY clang-tidy)
if(CLANG_TIDY)
    add_test(NAME mac.tidy COMMAND ${PROJECT_SOURCE_DIR}/tests/lint/check-tidy
        ${CLANG_TIDY} ${PROJECT_BINARY_DIR} mac)
    set_tests_properties(mac.tidy PROPERTIES
        LABELS "mac;lint" WORKING_DIRECTORY ${PROJECT_SOURCE_DIR} TIMEOUT 300)
endif()
