#include "Life.h"

#include <filesystem>

#include "Faults.h"

namespace wrong {

Life life;

namespace {

bool sIsFault = false;

}  // namespace

bool Life::IsAnyFileGone() const
{
    for (const Document& each : documents) {
        if (each.path.rfind('/', 0) == 0 && !std::filesystem::exists(each.path)) return true;
    }
    return false;
}

void Tell(Moment moment)
{
    for (const Fault* const fault : GetFaults()) {
        life.moment = moment;
        sIsFault = true;
        fault->act();
        sIsFault = false;
    }
}

bool IsFault() { return sIsFault; }

void Note(const char* call, AIErr status)
{
    if (status == kHostSuccess) return;
    life.failedCall = call;
    life.status = status;
    Tell(Moment::kFailed);
}

void Expect(const char* call, AIErr status)
{
    Note(call, status);
    if (status != kHostSuccess) throw Failure{status};
}

}  // namespace wrong
