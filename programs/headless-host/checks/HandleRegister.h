#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "checks/CallName.h"
#include "checks/GuardedHandles.h"
#include "checks/HandleType.h"
#include "checks/RuleViolations.h"

namespace headless {

// Every handle and block that the host has given to the plug-in, with its type, references and
// owner. Main thread only.
//
// Each handle that the plug-in passes to a suite is looked up here. A null handle, an unknown one,
// an expired one and one of another type are four different violations, which name the operation.
//
// An Object is a struct with `static constexpr HandleType kHandleType`; the register owns it.
class HandleRegister {
public:
    explicit HandleRegister(RuleViolations& violations) : mViolations(violations) {}

    // Returns a new handle with one reference.
    //
    // owner   a handle that this one expires with; may be null
    template <class Object>
    void* Issue(std::shared_ptr<Object> object, const void* owner = nullptr)
    {
        return IssueHandle(Object::kHandleType, std::move(object), owner);
    }

    // Returns a zeroed block with one reference, which the plug-in may use until it is released.
    //
    // type   kBlock or kMemoryHandle
    void* IssueBlock(HandleType type, size_t size);

    // The object of a valid handle. The register owns it until the handle expires. For any other
    // handle: null, and a violation.
    //
    // operation   the suite's operation, for the violation
    template <class Object>
    Object* Find(const void* handle, const CallName& operation)
    {
        Record* const record = Check(handle, Object::kHandleType, operation);
        return record == nullptr ? nullptr : static_cast<Object*>(record->object.get());
    }

    // The same without a violation, for handles that the host has stored itself.
    template <class Object>
    Object* Peek(const void* handle) const
    {
        const Record* const record = FindRecord(handle);
        if (record == nullptr || record->type != Object::kHandleType) return nullptr;
        return static_cast<Object*>(record->object.get());
    }

    // Adds or removes a reference; with the last reference the handle expires. Returns false, and
    // records a violation, if this is no valid handle of this type.
    bool Retain(const void* handle, HandleType type, const CallName& operation);
    bool Release(void* handle, HandleType type, const CallName& operation);

    // Makes a handle of the host expire, with all handles that it owns. Ignores unknown handles.
    void Expire(void* handle);

    // Marks the handle as one that the plug-in need not release.
    void KeepForHost(const void* handle);

    struct Message {
        size_t number = 0;
        bool mayKeepArtSet = false;  // the plug-in may leave one art set of it unreleased
    };

    // Begins a new message: handles from now on belong to it. Returns the message before it, for
    // ResumeMessage.
    Message BeginMessage(bool mayKeepArtSet);

    // A message inside of another one has ended: handles from now on belong to the outer one again.
    void ResumeMessage(const Message& outer) { mMessage = outer; }

    // One line for each handle that the plug-in should have released by now.
    std::vector<std::string> ListLeaks() const;

    // The handle, valid or not, that Describe gives this text for; null if there is none. Blocks
    // aren't looked for.
    void* FindDescribed(const std::string& text) const;

    // "text range#12"; "null"; "unknown" for an address that is no handle.
    std::string Describe(const void* handle) const;

private:
    // No record is ever deleted, and a document with a thousand texts takes millions of handles, so
    // the numbers have 32 bits: the records of more handles would fill 160 GB.
    struct Record {
        HandleType type = HandleType::kPlugin;
        bool living = true;
        bool isHostOwned = false;
        bool leaked = false;       // expired with its owner, unreleased
        bool scansArtSet = false;  // an art set of a message that may keep one
        uint32_t references = 1;
        uint32_t serial = 0;
        uint32_t message = 0;
        uint32_t lastOwned = 0;      // the number of a handle from 1; 0 if this one owns none
        uint32_t previousOwned = 0;  // the same, of the same owner
        std::shared_ptr<void> object;
    };
    struct BlockRecord : Record {
        size_t size = 0;
    };

    void* IssueHandle(HandleType type, std::shared_ptr<void> object, const void* owner);
    void Fill(Record& record, HandleType type);
    Record* Check(const void* handle, HandleType type, const CallName& operation);
    Record* FindRecord(const void* handle);
    const Record* FindRecord(const void* handle) const;
    void End(void* handle, Record& record);

    RuleViolations& mViolations;
    GuardedHandles mMemory;
    std::deque<Record> mHandles;  // by the number of the handle
    std::unordered_map<const void*, BlockRecord> mBlocks;
    uint32_t mSerial = 0;
    Message mMessage;
    size_t mLastMessage = 0;
};

}  // namespace headless
