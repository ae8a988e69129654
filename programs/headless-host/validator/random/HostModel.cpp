#include "validator/random/HostModel.h"

#include <algorithm>

namespace headless {

namespace {

using Names = std::vector<std::string>;

bool HasName(const Names& names, const std::string& name)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

void AddName(Names& names, const std::string& name)
{
    if (!HasName(names, name)) names.push_back(name);
}

void RemoveName(Names& names, const std::string& name)
{
    names.erase(std::remove(names.begin(), names.end(), name), names.end());
}

bool IsTemplate(const std::string& path)
{
    constexpr char kExtension[] = ".ait";
    constexpr size_t kLength = sizeof(kExtension) - 1;
    return path.size() >= kLength && path.compare(path.size() - kLength, kLength, kExtension) == 0;
}

}  // namespace

void HostModel::AddFile(const std::string& path, bool isReadable)
{
    AddName(mFiles, path);
    if (isReadable) {
        AddName(mReadableFiles, path);
    } else {
        RemoveName(mReadableFiles, path);
    }
}

void HostModel::RemoveFile(const std::string& path)
{
    RemoveName(mFiles, path);
    RemoveName(mReadableFiles, path);
}

void HostModel::Add(Document document)
{
    mRecent.push_back(mDocuments.size());
    mDocuments.push_back(std::move(document));
}

void HostModel::Open(const std::string& path)
{
    if (!HasName(mReadableFiles, path)) return;
    if (IsTemplate(path)) {
        Add({{}, false, false, true});
    } else {
        Add({path, true, true, false});
    }
}

void HostModel::New() { Add({}); }

void HostModel::MakeCurrent(size_t index)
{
    const auto place = std::find(mRecent.begin(), mRecent.end(), index);
    std::rotate(place, place + 1, mRecent.end());
}

void HostModel::Close(size_t index)
{
    mDocuments.erase(mDocuments.begin() + static_cast<std::ptrdiff_t>(index));
    mRecent.erase(std::find(mRecent.begin(), mRecent.end(), index));
    for (size_t& each : mRecent) each -= each > index ? 1 : 0;
}

void HostModel::CloseCurrent() { Close(mRecent.back()); }

bool HostModel::HasCurrentFile() const
{
    return mMaybeOpen == 0 && !mRecent.empty() && mDocuments[mRecent.back()].hasFile;
}

void HostModel::SaveCurrentAs(const std::string& path)
{
    if (mMaybeOpen > 0) return;
    Document& document = mDocuments[mRecent.back()];
    if (document.hasFile || document.isCopy) {
        // The host may refuse the extension; then the document keeps its name, or has none.
        document.isNameKnown = false;
    } else {
        document = {path, true, true, false};
    }
}

std::string HostModel::GetName(size_t index) const
{
    const Document& wanted = mDocuments[index];
    if (mMaybeOpen > 0 || !wanted.isNameKnown) return {};
    const auto count =
        std::count_if(mDocuments.begin(), mDocuments.end(),
                      [&](const Document& each) { return each.name == wanted.name; });
    return count == 1 ? wanted.name : std::string();
}

void HostModel::ChangeCore(const std::string& function)
{
    AddName(mChangedCore, function);
    RemoveName(mRebuilding, function);
    UpdateLibraries();
}

void HostModel::ResetCore(const std::string& function)
{
    RemoveName(mChangedCore, function);
    RemoveName(mRebuilding, function);
}

bool HostModel::IsCoreChanged(const std::string& function) const
{
    return HasName(mChangedCore, function);
}

void HostModel::AllowRebuild(const std::string& function)
{
    AddName(mRebuilding, function);
    UpdateLibraries();
}

void HostModel::AddFault(size_t calls)
{
    mCallsToFault = std::max(mCallsToFault, calls);
    UpdateLibraries();
}

void HostModel::CountCalls(size_t calls) { mCallsToFault -= std::min(mCallsToFault, calls); }

// A rebuild from another tree, or one that fails half-way, leaves other libraries.
void HostModel::UpdateLibraries()
{
    if (!mRebuilding.empty() && (IsCoreChanged("GetMenus") || IsFaultPending())) {
        mAreLibrariesThere = false;
    }
}

void HostModel::Restart()
{
    mDocuments.clear();
    mRecent.clear();
    mMaybeOpen = 0;
    mAreItemsEnabled = true;
    mAreLibrariesThere = true;
}

}  // namespace headless
