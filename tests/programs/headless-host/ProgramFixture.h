#pragma once

#include <gtest/gtest.h>

#include <string>

#include "ScratchFolder.h"

// Runs the program itself, with a home folder and a current folder of the test's own.
class ProgramFixture : public testing::Test {
protected:
    ProgramFixture();

    // Runs the program and waits for its end. Fills `output` and `errors`; returns its exit status,
    // or -1 if a signal ended it.
    //
    // arguments   words for the shell
    // plugin      the name of a test plug-in
    // input       the file that is its standard input; relative to `folder`
    int RunProgram(const std::string& arguments, const std::string& plugin,
                   const std::string& input = "/dev/null");

    std::string ReadFile(const std::string& name) const;

    const ScratchFolder scratch;
    const std::string folder = scratch.Path();
    std::string before;              // commands of the shell that come before the program
    std::string outputFile = "out";  // its standard output; relative to `folder`
    std::string output;
    std::string errors;
};
