#pragma once

#include <string>
#include <vector>

#include "session/Session.h"
#include "session/SessionWords.h"

// The words that can follow in an action, for the prompt. Each function may return more words than
// those that begin with `word`, in any order.
//
// before   the words before the cursor; the first is the action
// word     the beginning of the word at the cursor
namespace headless {

using CompleteFunction = std::vector<std::string> (*)(const Session& session, const Words& before,
                                                      const std::string& word);

std::vector<std::string> CompletePath(const Session& session, const Words& before,
                                      const std::string& word);
std::vector<std::string> CompleteDocument(const Session& session, const Words& before,
                                          const std::string& word);
std::vector<std::string> CompleteMenuItem(const Session& session, const Words& before,
                                          const std::string& word);

// A font for the first argument; nothing for the words that follow.
std::vector<std::string> CompleteFont(const Session& session, const Words& before,
                                      const std::string& word);

// The forms of `show`.
std::vector<std::string> CompleteShow(const Session& session, const Words& before,
                                      const std::string& word);

// The forms of `expect`, and the path of `expect file`.
std::vector<std::string> CompleteExpect(const Session& session, const Words& before,
                                        const std::string& word);

}  // namespace headless
