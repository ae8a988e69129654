# Checks both slices of the bundle on a Mac. The program and its PluginCore are universal too, and
# use no googletest, which is installed for one architecture only.
set(scripted_host ScriptedHost.cpp ScriptedHostArt.cpp ScriptedHostMenus.cpp
    ScriptedHostPlatform.cpp ScriptedHostStrings.cpp ScriptedHostSuites.cpp ScriptedHostText.cpp)
list(TRANSFORM scripted_host PREPEND ${PROJECT_SOURCE_DIR}/tests/doubles/)
add_executable(bundle-check
    bundle/CheckBundle.mm bundle/main.mm
    support/AppKitSession.mm support/Display_Apple.cpp ${scripted_host})
typeloft_target(bundle-check)
target_include_directories(bundle-check PRIVATE
    bundle support ${PROJECT_SOURCE_DIR}/tests/doubles)
target_link_libraries(bundle-check PRIVATE hostinterface typeloftplatform)
set_target_properties(bundle-check PROPERTIES LINKER_LANGUAGE CXX)
set_target_properties(bundle-check scriptedplugincore_objects scriptedplugincore-complete
    PROPERTIES OSX_ARCHITECTURES "x86_64;arm64")
add_dependencies(bundle-check TypeloftSPEA scriptedplugincore-complete)

# The place of the font manager, whose PluginCore is found beside it.
set(installation ${CMAKE_CURRENT_BINARY_DIR}/installation)
file(MAKE_DIRECTORY ${installation})
file(CREATE_LINK ${PROJECT_BINARY_DIR}/tests/doubles/plugin-core/frameworks/complete
    ${installation}/PluginFiles SYMBOLIC)

# An Intel Mac runs only the first, a Mac without Rosetta only the second.
foreach(architecture x86_64 arm64)
    add_test(NAME bundle.${architecture} COMMAND arch -${architecture}
        $<TARGET_FILE:bundle-check> $<TARGET_BUNDLE_DIR:TypeloftSPEA> ${installation}/Vexcor)
    set_tests_properties(bundle.${architecture} PROPERTIES LABELS mac TIMEOUT 60
        SKIP_REGULAR_EXPRESSION "Bad CPU type in executable")
endforeach()
