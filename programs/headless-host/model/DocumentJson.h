#pragma once

#include <nlohmann/json.hpp>

#include "documents/model/Document.h"

namespace headless {

// The content of a document that a plug-in can see, as JSON for the journal: kind, template, frames
// [story, runs], stories, fonts, placed files. A run is [name, length].
nlohmann::json WriteContent(const documents::Document& document);

// The reverse. Throws an exception of nlohmann::json, or std::out_of_range, if `content` is not
// what WriteContent writes.
documents::Document ReadContent(const nlohmann::json& content);

}  // namespace headless
