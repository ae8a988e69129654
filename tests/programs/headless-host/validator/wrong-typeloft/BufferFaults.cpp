#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>

#include "Fault.h"

// How the plug-in reads what PluginCore leaves in a buffer.
namespace wrong {

namespace {

unsigned int ReadAsMuchAsSize(char* idBuffer, size_t* ioSize)
{
    const unsigned int status = core::HandleCreateNewDocument(idBuffer, ioSize);
    if (*ioSize > 0) {
        const volatile char* const last = idBuffer + (*ioSize - 1);
        (void)*last;
    }
    return status;
}

// The id is read to its zero byte, wherever that is; a page that cannot be read follows the buffer.
unsigned int ReadOnBehindBuffer(const char* documentPath, char* idBuffer, size_t* ioSize)
{
    const auto page = static_cast<size_t>(sysconf(_SC_PAGESIZE));
    void* const pages =
        mmap(nullptr, 2 * page, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (pages == MAP_FAILED) return kCoreNotFound;
    char* const end = static_cast<char*>(pages) + page;
    (void)mprotect(end, page, PROT_NONE);
    const size_t capacity = *ioSize;
    char* const buffer = end - capacity;
    const unsigned int status = core::GetIDForDocument(documentPath, buffer, ioSize);
    const std::string id = buffer;
    std::memcpy(idBuffer, id.c_str(), std::min(id.size() + 1, capacity));
    (void)munmap(pages, 2 * page);
    return status;
}

}  // namespace

const Fault kBufferFaults[] = {
    {1108, nullptr, WRONG_CORE(HandleCreateNewDocument, ReadAsMuchAsSize)},
    {1109, nullptr, WRONG_CORE(GetIDForDocument, ReadOnBehindBuffer)},
    {0, nullptr, nullptr}};

}  // namespace wrong
