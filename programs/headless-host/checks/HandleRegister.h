#pragma once

#include <deque>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "checks/GuardedHandles.h"
#include "checks/HandleType.h"
#include "checks/RuleViolations.h"

namespace headless {

// Every handle and reference that the host has handed out, with its type and life.
//
// A handle that comes back is looked up here. A null, an unknown, an expired handle and one of
// another type are four different errors, each naming the operation; they go to the RuleViolations.
// Main thread only.
//
// An Object is a struct with `static constexpr HandleType kHandleType`; the register owns it.
class HandleRegister {
public:
    explicit HandleRegister(RuleViolations& violations) : mViolations(violations) {}

    // A new handle with one reference. `owner` is a handle, or null: when it expires this one does.
    template <class Object>
    void* Issue(std::shared_ptr<Object> object, const void* owner = nullptr)
    {
        return IssueHandle(Object::kHandleType, std::move(object), owner);
    }

    // A block of zeroed memory that the guest may use until it is released.
    void* IssueBlock(HandleType type, size_t size);

    // The object of a living handle; null, and an error, for anything else. The object is the
    // register's and lives until the handle expires.
    template <class Object>
    Object* Find(const void* handle, const std::string& operation)
    {
        Record* const record = Check(handle, Object::kHandleType, operation);
        return record == nullptr ? nullptr : static_cast<Object*>(record->object.get());
    }

    // The same without an error, for handles that the host itself kept.
    template <class Object>
    Object* Peek(const void* handle) const
    {
        const Record* const record = FindRecord(handle);
        if (record == nullptr || record->type != Object::kHandleType) return nullptr;
        return static_cast<Object*>(record->object.get());
    }

    // One more reference, or one less; the last one ends the handle. False, and an error, if the
    // handle isn't a living one of this type.
    bool Retain(const void* handle, HandleType type, const std::string& operation);
    bool Release(void* handle, HandleType type, const std::string& operation);

    // Ends a handle of the host's own and all that it owns. Unknown ones are ignored.
    void Expire(void* handle);

    // The handle is the host's: the guest needn't give it back.
    void KeepForHost(const void* handle);

    // From here on handles belong to another message. A message that scans a document may leave one
    // art set behind.
    void BeginMessage(bool mayKeepArtSet);

    // What the guest should have given back by now, a line each.
    std::vector<std::string> ListLeaks() const;

    // As in "text range#12", "null", or "unknown" for what was never handed out.
    std::string Describe(const void* handle) const;

private:
    struct Record {
        HandleType type = HandleType::kPlugin;
        bool living = true;
        bool isHostOwned = false;
        bool leaked = false;       // it expired with its owner while the guest still held it
        bool scansArtSet = false;  // it came up in a message that may leave one
        unsigned references = 1;
        size_t serial = 0;
        size_t message = 0;
        size_t size = 0;
        const void* owner = nullptr;
        std::shared_ptr<void> object;
    };

    void* IssueHandle(HandleType type, std::shared_ptr<void> object, const void* owner);
    void Fill(Record& record, HandleType type);
    Record* Check(const void* handle, HandleType type, const std::string& operation);
    Record* FindRecord(const void* handle);
    const Record* FindRecord(const void* handle) const;
    void End(void* handle, Record& record);

    RuleViolations& mViolations;
    GuardedHandles mMemory;
    std::deque<Record> mHandles;  // by the token's number
    std::unordered_map<const void*, Record> mBlocks;
    std::unordered_map<const void*, std::vector<void*>> mOwned;
    size_t mSerial = 0;
    size_t mMessage = 0;
    bool mMayKeepArtSet = false;
};

}  // namespace headless
