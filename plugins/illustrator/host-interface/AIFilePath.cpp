#include "AIFilePath.h"

#include <utility>

#include "AIError.h"
#include "DropExceptions.h"
#include "SuiteGlobals.h"

namespace ai {

FilePath::~FilePath()
{
    // A destructor can't report a failure.
    if (mImpl == nullptr || sAIFilePath == nullptr) return;
    DropExceptions([this] { (void)sAIFilePath->DisposeFilePath(this); });
}

UnicodeString FilePath::GetFileName(bool displayForm) const
{
    UnicodeString name;
    check_result(check_suite(sAIFilePath)->GetFileName(*this, displayForm, name));
    return name;
}

UnicodeString FilePath::GetFullPath(bool displayForm) const
{
    UnicodeString path;
    check_result(check_suite(sAIFilePath)->GetFullPath(*this, displayForm, path));
    return path;
}

void FilePath::swap(FilePath& other) noexcept { std::swap(mImpl, other.mImpl); }

}  // namespace ai
