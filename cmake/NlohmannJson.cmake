# Uses nlohmann_json 3.9.1 from .deps, where tools/bootstrap unpacks it, otherwise the system's
# version if it is at least 3.9.1 and below 4.
if(TARGET nlohmann_json::nlohmann_json)
    return()
endif()
set(pinned ${PROJECT_SOURCE_DIR}/.deps/nlohmann-json/usr/include)
if(EXISTS ${pinned}/nlohmann/json.hpp)
    add_library(nlohmann_json::nlohmann_json INTERFACE IMPORTED GLOBAL)
    target_include_directories(nlohmann_json::nlohmann_json SYSTEM INTERFACE ${pinned})
else()
    find_package(nlohmann_json 3.9.1 REQUIRED)
    if(nlohmann_json_VERSION VERSION_GREATER_EQUAL 4)
        message(FATAL_ERROR
            "nlohmann_json ${nlohmann_json_VERSION} is too new: expected 3.9.1 to 3.x")
    endif()
    set_target_properties(nlohmann_json::nlohmann_json PROPERTIES IMPORTED_GLOBAL TRUE)
    message(STATUS "Using the system's nlohmann_json ${nlohmann_json_VERSION} instead of 3.9.1")
endif()
