# Where `cmake --install` puts what. Below any prefix: the programs as links in bin, so that they
# find each other's files from their own place, wherever the prefix is moved to.
#
#     bin/headless-host -> ../lib/typeloft/bin/headless-host
#     bin/Vexcor        -> ../lib/typeloft/Vexcor/Vexcor
#     lib/typeloft      what the programs load: Plug-ins, Frameworks, Simulation, Vexcor/PluginFiles
#     share             manual pages, completions, desktop entry, documents
set(TYPELOFT_INSTALL_FOLDER lib/typeloft)

# typeloft_install_program(TARGET FOLDER): installs the program in this folder of lib/typeloft, with
# a link in bin.
function(typeloft_install_program target folder)
    install(TARGETS ${target} DESTINATION ${TYPELOFT_INSTALL_FOLDER}/${folder})
    set(link ${CMAKE_CURRENT_BINARY_DIR}/links/${target})
    file(MAKE_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/links)
    file(CREATE_LINK ../${TYPELOFT_INSTALL_FOLDER}/${folder}/${target} ${link} SYMBOLIC)
    install(FILES ${link} DESTINATION bin)
endfunction()
