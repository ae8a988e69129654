#pragma once

#include <string>
#include <vector>

struct ExpectedError {
    unsigned int ordinal;
    const char* name;
};

struct ExpectedErrorClass {
    unsigned int number;
    const char* name;
    std::vector<ExpectedError> errors;
};

// All named errors by class. Written independently of the table in CoreErrorNames.cpp.
const std::vector<ExpectedErrorClass>& ExpectedErrorClasses();

inline unsigned int ExpectedCode(const ExpectedErrorClass& owner, const ExpectedError& error)
{
    return error.ordinal * 0x1000000U + owner.number;
}

inline std::string ExpectedName(const ExpectedErrorClass& owner, const ExpectedError& error)
{
    return std::string(owner.name) + "::" + error.name;
}
