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

// A file-format message whose path is the host's: it is taken back when the holder goes.
class ScriptedFileFormatMessage {
public:
    ScriptedFileFormatMessage(SPMessageData head, const std::string& path);
    ~ScriptedFileFormatMessage();
    ScriptedFileFormatMessage(const ScriptedFileFormatMessage&) = delete;
    ScriptedFileFormatMessage& operator=(const ScriptedFileFormatMessage&) = delete;

    AIFileFormatMessage record;
};

// A host in memory. It answers all suites of the host interface from a model that the test fills
// in, and keeps a log of every call. There is one at a time: the suites' functions go to the one
// made last. Main thread only.
//
// The log has one text per call: "Suite.Operation(arguments)", with texts in quotes, handles by
// their kind and number ("frame 0", "font Name"), without arguments that only go out. Operations
// of the text engine are named after their wrapper's suite: "ATE TextRange.AddRef".
class ScriptedHost {
public:
    ScriptedHost();
    ~ScriptedHost();
    ScriptedHost(const ScriptedHost&) = delete;
    ScriptedHost& operator=(const ScriptedHost&) = delete;

    static ScriptedHost& Current();

    // The model, to be filled in by the test.
    std::vector<ScriptedDocument> documents;
    int currentDocument = -1;                          // index, -1 for none
    std::map<AIFaceScript, std::string> defaultFonts;  // PostScript name by script; none: an error
    std::string privateFrameworksPath;

    // Adds a document and makes it the current one.
    ScriptedDocument& AddDocument(const std::string& path);
    _t_AIDocument* DocumentHandle(int index) const;
    AIArtHandle FrameHandle(int frame) const;
    // A key or reference for a font of that name, as the font suite takes them. The reference is
    // counted; it is the caller's.
    AIFontKey FontKey(const std::string& name);
    const std::string* FontName(AIFontKey key) const;  // null for an unknown key
    ATE::_Font* NewFontReference(const std::string& name);
    ATE::_TextRange* NewRunReference(const std::string& fontName);
    // A reference of any kind ("TextRunsIterator"), with one font name per run or item.
    void* NewReferenceOfKind(const std::string& kind, std::vector<std::string> fonts);

    // What the plug-in has registered and shown.
    std::vector<ScriptedNotifier> notifiers;
    std::vector<ScriptedTimer> timers;
    std::vector<ScriptedFileFormat> fileFormats;
    std::vector<ScriptedMenuItem> menuItems;
    std::vector<ScriptedMenuGroup> menuGroups;
    // Handles that the next items get, in this order; later ones get handles of the host's own.
    std::list<AIMenuItemHandle> menuItemHandles;
    std::vector<ScriptedAlert> alerts;
    std::vector<ModalWindow*> modalSessions;  // by the host's own modal-session function

    // The handle given for the notifier of that host type; null if nobody subscribed to it.
    AINotifierHandle NotifierHandle(const std::string& type) const;

    // Faults. The n-th call from now of "Suite.Operation" (1 is the next) gives the code and does
    // nothing else; with n 0, every call.
    void FailCall(const std::string& operation, int nth, AIErr code);
    // Every call of the operation succeeds and gives a null handle.
    void GiveNull(const std::string& operation);
    // Runs in every call of the operation, before it is answered; may throw.
    void OnCall(const std::string& operation, std::function<void()> action);
    void RefuseSuite(const std::string& name, int version, AIErr code);
    void AllowSuite(const std::string& name, int version);
    // Answers the basic suite's equality in the place of a byte comparison.
    std::function<bool(const char*, const char*)> isEqual;

    // The log, whole or only the calls that begin so.
    const std::vector<std::string>& Calls() const { return mCalls; }
    std::vector<std::string> Calls(const std::string& beginning) const;
    std::size_t CountCalls(const std::string& beginning) const;
    void ClearCalls() { mCalls.clear(); }

    // What is out: each must be 0, or as the test says, once the plug-in has returned.
    std::size_t LiveStrings() const { return strings.size(); }
    std::size_t LivePaths() const { return paths.size(); }
    std::size_t LiveBlocks() const { return blocks.size(); }
    std::size_t LiveReferences() const { return references.size(); }
    std::size_t LiveArtSets() const { return artSets.size(); }
    std::size_t LiveArtArrays() const { return artArrays.size(); }
    int SuiteReferences(const std::string& name, int version) const;
    int SuiteReferences() const;  // of all suites together
    // Uses of unknown or dead handles and releases too many, in words. Must be empty.
    const std::vector<std::string>& Faults() const { return mFaults; }

    // Messages, with the head as the host keeps it: its reference to the plug-in, the globals word
    // that the plug-in stored, the basic suite.
    void* globals = nullptr;
    SPMessageData Head();
    SPInterfaceMessage InterfaceMessage();
    // `type` is kept by the host; an unknown type gives a null notifier.
    AINotifierMessage NotifierMessage(const std::string& type, void* notifyData = nullptr);
    AIMenuMessage MenuMessage(AIMenuItemHandle item);
    AITimerMessage TimerMessage();
    ScriptedFileFormatMessage FileFormatMessage(const std::string& path);

    // Hands a message to the plug-in and keeps the globals word that comes back.
    template <class Message>
    AIErr Send(PluginEntry entry, std::string caller, std::string selector, Message& message)
    {
        const AIErr result = entry(caller.data(), selector.data(), &message);
        globals = message.d.globals;
        return result;
    }

    SPBasicSuite* Basic();

    // For the suites' functions.
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
    std::map<void*, std::unique_ptr<ScriptedArtArray>> artArrays;  // of GetMatchingArt

private:
    struct Failure {
        std::string operation;
        int nth;  // calls to go; 0 for every one
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
    std::list<std::string> mNotifierTypes;  // the messages point into these
    std::size_t mNextHandle = 0x100000;
};

// A text in quotes for the log; a null one is "(null)" without them.
std::string Quoted(const char* text);
