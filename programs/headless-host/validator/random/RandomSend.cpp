#include "validator/random/RandomSend.h"

#include <algorithm>
#include <iterator>

#include "session/SessionWords.h"

namespace headless {

namespace {

struct KnownMessage {
    const char* caller;
    const char* selector;
};

constexpr KnownMessage kMessages[] = {
    {"SP Interface", "Startup"},  {"SP Interface", "About"},      {"AI Notifier", "AI Notify"},
    {"AI Notifier", "AI Notify"}, {"AI Notifier", "AI Notify"},   {"AI Menu", "AI Go"},
    {"AI Menu", "AI Update"},     {"AI File Format", "AI Check"}, {"AI Timer", "AI Go"},
};
constexpr const char* kCallers[] = {
    "SP Interface", "SP Access",    "AI Notifier", "AI Menu",        "AI Timer", "AI File Format",
    "AI Tool",      "sp interface", "AI",          "SP Interface 2", "",         "%s%n",
    "\xC3\xA9"};
constexpr const char* kSelectors[] = {"Startup", "About",     "Shutdown", "Unload",    "Reload",
                                      "AI Go",   "AI Update", "AI Check", "AI Notify", "AI Track",
                                      "startup", "AI",        "",         "%s%n",      "AI Go "};
constexpr const char* kNotifierTypes[] = {"AI Document Changed Notifier",
                                          "AI Document Opened Notifier",
                                          "AI Document About To Close Notifier",
                                          "AI Document Closed Notifier",
                                          "AI Document New Notifier",
                                          "AI Application Started Notifier",
                                          "AI Font List Changed Notifier",
                                          "AI Menu Changed Notifier",
                                          "AI Command Notifier: After Save",
                                          "AI Command Notifier: After Save As",
                                          "AI Document Write On Disk Complete Notifier",
                                          "AI Unknown Notifier",
                                          ""};
constexpr const char* kPaths[] = {
    "a.ai", "", "/", "no such folder/x.ai", "form.ait", "print.pdf", ".", "a.ai/", "\xFF.ai"};

// What our plug-in registers.
constexpr uint64_t kNotifierCount = 12;
constexpr uint64_t kShutdownNotifier = 7;  // its message ends the plug-in
constexpr uint64_t kMenuItemCount = 4;     // on the top level, which are never removed

class SendLineMaker {
public:
    SendLineMaker(RandomNumbers& random, size_t documents, bool isTypeloft)
        : mRandom(random), mDocuments(documents), mIsTypeloft(isTypeloft)
    {
    }

    std::string Make()
    {
        std::string caller;
        std::string selector;
        do {
            const KnownMessage& known = mRandom.Pick(kMessages);
            const bool isKnown = !mRandom.Once(4);
            caller = isKnown ? known.caller : MakeText(kCallers);
            selector = isKnown ? known.selector : MakeText(kSelectors);
        } while (EndsPlugin(caller, selector));
        mLine = "send " + QuoteSessionWord(caller) + " " + QuoteSessionWord(selector);
        AddFields(caller);
        return std::move(mLine);
    }

private:
    static bool EndsPlugin(const std::string& caller, const std::string& selector)
    {
        return (caller == "SP Interface" && selector == "Shutdown") ||
               (caller == "SP Access" && selector == "Unload");
    }

    static bool IsKnown(const std::string& caller)
    {
        return std::any_of(std::begin(kMessages), std::end(kMessages),
                           [&](const KnownMessage& each) { return caller == each.caller; });
    }

    template <size_t Count>
    std::string MakeText(const char* const (&texts)[Count])
    {
        if (!mRandom.Once(40)) return mRandom.Pick(texts);
        const size_t length = mRandom.Between(64, 4096);
        return std::string(length, static_cast<char>('a' + mRandom.Below(26)));
    }

    // An unknown caller comes with the fields of any message.
    void AddFields(const std::string& caller)
    {
        if (mRandom.Once(20)) {
            mLine += " message=null";
            return;
        }
        const std::string any = mRandom.Pick(kMessages).caller;
        const auto isFor = [&](const char* which) {
            return caller == which || (!IsKnown(caller) && any == which);
        };
        if (isFor("AI Notifier")) {
            AddNotifier();
            AddText("type", kNotifierTypes);
            if (!mRandom.Once(3)) AddHandle("document", mDocuments);
        } else if (isFor("AI Menu")) {
            AddHandle("item", mIsTypeloft ? kMenuItemCount : 1);
        } else if (isFor("AI File Format")) {
            if (mRandom.Once(2)) AddHandle("format", 1);
            AddText("path", kPaths);
        } else if (isFor("AI Timer") && mRandom.Once(2)) {
            AddHandle("timer", 1);
        }
    }

    void AddHandle(const char* key, uint64_t count)
    {
        constexpr const char* kOthers[] = {"null", "unknown", "stale"};
        const bool isReal = count > 0 && !mRandom.Once(3);
        Add(key, isReal ? std::to_string(mRandom.Between(1, count)) : mRandom.Pick(kOthers));
    }

    void AddNotifier()
    {
        if (mIsTypeloft && !mRandom.Once(4)) {
            const uint64_t number = mRandom.Between(1, kNotifierCount - 1);
            Add("notifier", std::to_string(number < kShutdownNotifier ? number : number + 1));
        } else {
            AddHandle("notifier", mIsTypeloft ? 0 : 1);
        }
    }

    template <size_t Count>
    void AddText(const char* key, const char* const (&texts)[Count])
    {
        Add(key, mRandom.Once(12) ? "null" : MakeText(texts));
    }

    void Add(const std::string& key, const std::string& value)
    {
        mLine += " " + QuoteSessionWord(key + "=" + value);
    }

    RandomNumbers& mRandom;
    const size_t mDocuments;
    const bool mIsTypeloft;
    std::string mLine;
};

}  // namespace

std::string MakeSendLine(RandomNumbers& random, size_t documents, bool isTypeloft)
{
    return SendLineMaker(random, documents, isTypeloft).Make();
}

}  // namespace headless
