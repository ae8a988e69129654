#pragma once

#include <functional>
#include <list>
#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>

#include "HostAnswer.h"

namespace headless {

// What one function of the simulated PluginCore does. What has no value is as in a sound one.
struct CoreBehaviour {
    std::optional<unsigned> status;
    std::string exceptionType;  // of kFaultExceptions
    std::optional<std::string> text;
    bool isRaw = false;          // writes as much of the text as fits, without a zero byte
    std::optional<size_t> size;  // that it writes to *ioSize
    std::optional<int> number;
    std::optional<bool> flag;
    bool rebuildsMenu = false;
    size_t times = SIZE_MAX;  // that it does so; then it is sound again
};

// What the simulated PluginCore (programs/simulated-core) does when the plug-in calls it. Main
// thread only.
class SimulatedCore {
public:
    // Answers a call in place of the behaviours. Can throw: that is the function's exception.
    using Answerer = std::function<void(const std::string& function,
                                        const nlohmann::json& arguments, HostAnswer& answer)>;

    // The calls of this process come here from now on, until the destructor.
    SimulatedCore();
    ~SimulatedCore();
    SimulatedCore(const SimulatedCore&) = delete;
    SimulatedCore& operator=(const SimulatedCore&) = delete;

    void SetAnswerer(Answerer answerer) { mAnswerer = std::move(answerer); }

    void Set(const std::string& function, CoreBehaviour behaviour);

    // How often the function was called so far.
    size_t GetCount(const std::string& function) const;

    // Answers a call of the plug-in; see HeadlessHostAnswerCoreFunction.
    void Answer(const std::string& function, const nlohmann::json& arguments, HostAnswer& answer);

    // Null while there is none.
    static SimulatedCore* GetCurrent();

private:
    CoreBehaviour Take(const std::string& function);

    Answerer mAnswerer;
    std::map<std::string, CoreBehaviour> mBehaviours;
    std::map<std::string, size_t> mCounts;
    std::list<std::string> mTexts;  // of the last answers, which can be nested
};

}  // namespace headless

// The function of the host executable that the simulated PluginCore calls.
extern "C" __attribute__((visibility("default"))) void HeadlessHostAnswerCore(const char* function,
                                                                              const char* argsJson,
                                                                              HostAnswer* answer);
