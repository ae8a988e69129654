#pragma once

#include <cstddef>
#include <functional>
#include <list>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "HostInterface.h"
#include "HostPlatform_Linux.h"
#include "ScriptedHostModel.h"

typedef AIErr (*PluginEntry)(char* caller, char* selector, void* message);

// A file-format message with a path of the host, which the destructor removes.
class ScriptedFileFormatMessage {
public:
    ScriptedFileFormatMessage(SPMessageData head, const std::string& path);
    ~ScriptedFileFormatMessage();
    ScriptedFileFormatMessage(const ScriptedFileFormatMessage&) = delete;
    ScriptedFileFormatMessage& operator=(const ScriptedFileFormatMessage&) = delete;

    AIFileFormatMessage record;
};

// A host in memory. Implements all suites of the host interface over a model that the test sets,
// and logs every call. Suite functions use the host that was constructed last. [main-thread]
//
// The log has one string per call: "Suite.Operation(arguments)", with strings in quotes and handles
// by kind and number ("frame 0", "font Name"), without output arguments. Operations of the text
// engine are named after the suite: "ATE TextRange.AddRef".
class ScriptedHost {
public:
    ScriptedHost();
    ~ScriptedHost();
    ScriptedHost(const ScriptedHost&) = delete;
    ScriptedHost& operator=(const ScriptedHost&) = delete;

    static ScriptedHost& Current();

    // The model, which the test sets.
    std::vector<ScriptedDocument> documents;
    int currentDocument = -1;                          // index; -1: none is open
    std::map<AIFaceScript, std::string> defaultFonts;  // PostScript name by script; the operation
                                                       // fails for a script without an entry
    std::string privateFrameworksPath;

    // Adds a document and makes it the current one.
    ScriptedDocument& AddDocument(const std::string& path);
    _t_AIDocument* DocumentHandle(int index) const;
    AIArtHandle FrameHandle(int frame) const;

    // Return a key or a reference for a font of that name, as the font suite takes them. The caller
    // releases the reference.
    AIFontKey FontKey(const std::string& name);
    const std::string* FontName(AIFontKey key) const;  // null for an unknown key
    ATE::_Font* NewFontReference(const std::string& name);
    ATE::_TextRange* NewRunReference(const std::string& fontName);
    // Returns a reference of any kind ("TextRunsIterator"), with one font name per run or item.
    void* NewReferenceOfKind(const std::string& kind, std::vector<std::string> fonts);

    // What the plug-in has registered and which alerts and windows came up.
    std::vector<ScriptedNotifier> notifiers;
    std::vector<ScriptedTimer> timers;
    std::vector<ScriptedFileFormat> fileFormats;
    std::vector<ScriptedMenuItem> menuItems;
    std::vector<ScriptedMenuGroup> menuGroups;
    // Handles for the next menu items, in this order; later items get generated ones.
    std::list<AIMenuItemHandle> menuItemHandles;
    std::vector<ScriptedAlert> alerts;
    std::vector<ModalWindow*> modalSessions;  // passed to the host's own modal-session function

    // Returns the handle of the notifier of that type; null if it has no subscription.
    AINotifierHandle NotifierHandle(const std::string& type) const;

    // Makes the n-th call of "Suite.Operation" from now (1 is the next) return the code and do
    // nothing else; 0 means every call.
    void FailCall(const std::string& operation, int nth, AIErr code);
    // Makes every call of the operation succeed with a null handle.
    void GiveNull(const std::string& operation);
    // Runs `action` in every call of the operation, before it does anything; may throw.
    void OnCall(const std::string& operation, std::function<void()> action);
    void RefuseSuite(const std::string& name, int version, AIErr code);
    void AllowSuite(const std::string& name, int version);
    // If set, replaces the byte comparison of SPBasicSuite::IsEqual.
    std::function<bool(const char*, const char*)> isEqual;

    // The log: all calls, or those that begin with `beginning`.
    const std::vector<std::string>& Calls() const { return mCalls; }
    std::vector<std::string> Calls(const std::string& beginning) const;
    std::size_t CountCalls(const std::string& beginning) const;
    void ClearCalls() { mCalls.clear(); }

    // The number of objects that the plug-in hasn't released.
    std::size_t LiveStrings() const { return strings.size(); }
    std::size_t LivePaths() const { return paths.size(); }
    std::size_t LiveBlocks() const { return blocks.size(); }
    std::size_t LiveReferences() const { return references.size(); }
    std::size_t LiveArtSets() const { return artSets.size(); }
    std::size_t LiveArtArrays() const { return artArrays.size(); }
    int SuiteReferences(const std::string& name, int version) const;
    int SuiteReferences() const;  // of all suites together
    // One line per use of an unknown or expired handle and per excess release. Must be empty.
    const std::vector<std::string>& Faults() const { return mFaults; }

    // Messages. The head has the plug-in's reference, the globals that the plug-in stored last and
    // the basic suite.
    void* globals = nullptr;
    SPMessageData Head();
    SPInterfaceMessage InterfaceMessage();
    // The host keeps a copy of `type`. A type without a subscription gives a null notifier.
    AINotifierMessage NotifierMessage(const std::string& type, void* notifyData = nullptr);
    AIMenuMessage MenuMessage(AIMenuItemHandle item);
    AITimerMessage TimerMessage();
    ScriptedFileFormatMessage FileFormatMessage(const std::string& path);

    // Sends a message to the plug-in and stores the globals that it returns.
    template <class Message>
    AIErr Send(PluginEntry entry, std::string caller, std::string selector, Message& message)
    {
        const AIErr result = entry(caller.data(), selector.data(), &message);
        globals = message.d.globals;
        return result;
    }

    SPBasicSuite* Basic();

    // Used by the suites' functions.
    AIErr Record(const std::string& operation, const std::string& arguments);
    bool GivesNull(const std::string& operation) const;
    AIErr Fault(const std::string& text);
    void* NewHandle();
    AIErr Acquire(const char* name, int version, void** slot);
    AIErr ReleaseOne(const char* name, int version);
    const ScriptedDocument* Document() const;

    std::map<void*, std::string> strings;
    std::map<void*, std::string> paths;
    std::map<void*, ScriptedBlock> blocks;
    std::map<void*, ScriptedReference> references;
    std::map<void*, std::vector<AIArtHandle>> artSets;
    std::map<void*, std::unique_ptr<ScriptedArtArray>> artArrays;  // from GetMatchingArt

private:
    struct Failure {
        std::string operation;
        int nth;  // calls left; 0: every call; -1: done
        AIErr code;
    };

    std::vector<std::string> mCalls;
    std::vector<std::string> mFaults;
    std::vector<Failure> mFailures;
    std::vector<std::string> mNulls;
    std::multimap<std::string, std::function<void()>> mActions;
    std::map<std::pair<std::string, int>, AIErr> mRefused;
    std::map<std::pair<std::string, int>, int> mSuiteReferences;
    std::map<void*, std::string> mFontKeys;
    std::list<std::string> mNotifierTypes;  // messages point to these strings
    std::size_t mNextHandle = 0x100000;
};

// Returns the string in quotes for the log; "(null)" without quotes for null.
std::string Quoted(const char* text);
