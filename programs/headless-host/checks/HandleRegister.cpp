#include "checks/HandleRegister.h"

#include <algorithm>
#include <charconv>
#include <set>

namespace headless {

void HandleRegister::Fill(Record& record, HandleType type)
{
    record.type = type;
    record.serial = ++mSerial;
    record.message = static_cast<uint32_t>(mMessage.number);
    record.scansArtSet = type == HandleType::kArtSet && mMessage.mayKeepArtSet;
}

void* HandleRegister::IssueHandle(HandleType type, std::shared_ptr<void> object, const void* owner)
{
    void* const handle = mMemory.NewHandle();
    Record& record = mHandles.emplace_back();
    Fill(record, type);
    record.object = std::move(object);
    size_t ownerNumber = 0;
    if (owner != nullptr && mMemory.FindHandle(owner, ownerNumber)) {
        uint32_t& last = mHandles[ownerNumber].lastOwned;
        record.previousOwned = last;
        last = static_cast<uint32_t>(mHandles.size());
    }
    return handle;
}

void* HandleRegister::IssueBlock(HandleType type, size_t size)
{
    void* const block = mMemory.NewBlock(size);
    BlockRecord& record = mBlocks[block];
    Fill(record, type);
    record.size = size;
    return block;
}

const HandleRegister::Record* HandleRegister::FindRecord(const void* handle) const
{
    size_t number = 0;
    if (mMemory.FindHandle(handle, number)) return &mHandles[number];
    const auto found = mBlocks.find(handle);
    return found == mBlocks.end() ? nullptr : &found->second;
}

HandleRegister::Record* HandleRegister::FindRecord(const void* handle)
{
    return const_cast<Record*>(static_cast<const HandleRegister*>(this)->FindRecord(handle));
}

HandleRegister::Record* HandleRegister::Check(const void* handle, HandleType type,
                                              const CallName& operation)
{
    Record* const record = handle == nullptr ? nullptr : FindRecord(handle);
    if (record != nullptr && record->type == type && record->living) return record;
    const std::string wanted = GetTypeName(type);
    if (handle == nullptr) {
        mViolations.Add(kNullHandle, operation + ": the " + wanted + " is null");
    } else if (record == nullptr) {
        mViolations.Add(kUnknownHandle,
                        operation + ": the " + wanted + " was never handed out by the host");
    } else if (record->type != type) {
        mViolations.Add(kWrongHandleType, operation + ": " + Describe(handle) +
                                              " is of the wrong type, wanted is: " + wanted);
    } else {
        mViolations.Add(kExpiredHandle, operation + ": " + Describe(handle) + " has expired");
    }
    return nullptr;
}

bool HandleRegister::Retain(const void* handle, HandleType type, const CallName& operation)
{
    Record* const record = Check(handle, type, operation);
    if (record == nullptr) return false;
    ++record->references;
    return true;
}

bool HandleRegister::Release(void* handle, HandleType type, const CallName& operation)
{
    Record* const record = Check(handle, type, operation);
    if (record == nullptr) return false;
    if (--record->references == 0) End(handle, *record);
    return true;
}

void HandleRegister::End(void* handle, Record& record)
{
    record.living = false;
    record.references = 0;
    record.object.reset();
    if (record.type == HandleType::kBlock || record.type == HandleType::kMemoryHandle) {
        mMemory.RetireBlock(handle, mBlocks.at(handle).size);
    }
    for (uint32_t number = record.lastOwned; number != 0;) {
        Record& owned = mHandles[number - 1];
        if (owned.living) {
            owned.leaked = IsOwedByPlugin(owned.type) && !owned.isHostOwned;
            End(mMemory.GetHandle(number - 1), owned);
        }
        number = owned.previousOwned;
    }
}

void HandleRegister::Expire(void* handle)
{
    Record* const record = FindRecord(handle);
    if (record != nullptr && record->living) End(handle, *record);
}

void HandleRegister::KeepForHost(const void* handle)
{
    Record* const record = FindRecord(handle);
    if (record != nullptr) record->isHostOwned = true;
}

HandleRegister::Message HandleRegister::BeginMessage(bool mayKeepArtSet)
{
    const Message before = mMessage;
    mMessage = {++mLastMessage, mayKeepArtSet};
    return before;
}

std::vector<std::string> HandleRegister::ListLeaks() const
{
    std::vector<std::string> lines;
    std::set<size_t> messagesWithArtSet;
    const auto look = [&](const Record& record) {
        const bool held = record.living && IsOwedByPlugin(record.type) && !record.isHostOwned;
        if (!held && !record.leaked) return;
        // A walk over the document's art leaves one art set unreleased; plug-ins may do that.
        if (record.scansArtSet && messagesWithArtSet.insert(record.message).second) return;
        lines.push_back(std::string(GetTypeName(record.type)) + "#" +
                        std::to_string(record.serial) + " was not given back");
    };
    for (const Record& record : mHandles) look(record);
    std::vector<const Record*> blocks;
    blocks.reserve(mBlocks.size());
    for (const auto& entry : mBlocks) blocks.push_back(&entry.second);
    std::sort(blocks.begin(), blocks.end(),
              [](const Record* a, const Record* b) { return a->serial < b->serial; });
    for (const Record* const record : blocks) look(*record);
    return lines;
}

void* HandleRegister::FindDescribed(const std::string& text) const
{
    const size_t mark = text.rfind('#');
    size_t serial = 0;
    if (mark == std::string::npos) return nullptr;
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data() + mark + 1, end, serial);
    if (read.ec != std::errc() || read.ptr != end) return nullptr;
    const auto found = std::lower_bound(
        mHandles.begin(), mHandles.end(), serial,
        [](const Record& record, size_t wanted) { return record.serial < wanted; });
    if (found == mHandles.end() || found->serial != serial) return nullptr;
    if (text.compare(0, mark, GetTypeName(found->type)) != 0) return nullptr;
    return mMemory.GetHandle(static_cast<size_t>(found - mHandles.begin()));
}

std::string HandleRegister::Describe(const void* handle) const
{
    if (handle == nullptr) return "null";
    const Record* const record = FindRecord(handle);
    if (record == nullptr) return "unknown";
    return std::string(GetTypeName(record->type)) + "#" + std::to_string(record->serial);
}

}  // namespace headless
