#include "MatchingArt.h"

AIErr GetMatchingArt(int16_t type, AIArtHandle**& matches, int32_t& count)
{
    if (sMatchingArt == nullptr) return kHostBadParameter;
    AIMatchingArtSpec spec(type, 0, 0);
    return sMatchingArt->GetMatchingArt(&spec, 1, &matches, &count);
}

void DisposeIllustratorHandle(AIArtHandle**& handle)
{
    // If that fails, the host, which allocated the array, keeps it.
    if (sMdMemorySuite != nullptr) {
        (void)sMdMemorySuite->MdMemoryDisposeHandle(reinterpret_cast<void**>(handle));
    }
    handle = nullptr;
}
