#include "plugin-core/documents/DocumentFonts.h"

#include <algorithm>
#include <iostream>

#include "documents/model/FileKind.h"
#include "plugin-core/documents/HostDocuments.h"
#include "plugin-core/storage/ErrorLog.h"
#include "plugin-core/storage/Failure.h"

namespace plugincore {
namespace {

using Names = std::vector<std::string>;

template <class Test>
Names Select(const Names& names, Test test)
{
    Names selected;
    std::copy_if(names.begin(), names.end(), std::back_inserter(selected), test);
    return selected;
}

}  // namespace

void DocumentFonts::SetUsed(const std::string& path, const Names& names)
{
    std::set<std::string> used(names.begin(), names.end());
    const auto known = mUsed.find(path);
    if (known != mUsed.end() && known->second == used) return;
    mServices.documentStore.SetOpen(path, used);
    mUsed[path] = std::move(used);
}

// The fonts of the text, which reports name, then the listed ones, then those in the placed files.
Names DocumentFonts::GetAll(const std::string& path, const Usage& usage)
{
    Names names = *usage.fonts;
    std::set<std::string> seen(names.begin(), names.end());
    const auto add = [&](const Names& others) {
        for (const std::string& name : others) {
            if (seen.insert(name).second) names.push_back(name);
        }
    };
    const auto listed = mListed.find(path);
    if (listed != mListed.end()) add(listed->second);
    add(mServices.linkedDocuments.GetFonts(path, usage.linkedDocuments.value_or(Names())));
    return mServices.MatchFontNames(names);
}

Names DocumentFonts::Open(const std::string& path, Usage usage, ActivationMode mode)
{
    ReleaseClosed();
    if (usage.fonts) {
        mRefusals.Continue(path);
    } else {
        mRefusals.Begin(path);
    }
    if (!usage.fonts || !usage.linkedDocuments) {
        const std::optional<DocumentContent> content = mServices.linkedDocuments.Read(path);
        // Not an error here: the host reads the file next and reports what is wrong with it.
        if (!content && !usage.fonts) return {};
        if (content) mListed[path] = content->listedFonts;
        if (content && !usage.fonts) usage.fonts = content->fonts;
        if (content && !usage.linkedDocuments) usage.linkedDocuments = content->linkedFiles;
    }
    mServices.documentStore.Remember(path);
    const Names names = GetAll(path, usage);
    SetUsed(path, names);
    mOpen.insert(path);
    mSaved.erase(path);
    mSavedAmong.erase(path);
    if (names.empty()) return {};

    const std::set<std::string> held = mServices.activation.Hold(path, names);
    const Services::ActiveNames active = mServices.ListActive();
    // The tables say active and fontconfig doesn't: the folder was cleared by the user or a tool.
    if (!std::includes(active.ours.begin(), active.ours.end(), held.begin(), held.end())) {
        (void)mServices.activation.Repair();  // the list of repairs isn't needed here
    }
    if (mode == ActivationMode::kOff) return {};
    return mServices.SelectFromLibrary(Select(names, [&](const auto& name) {
        return held.count(name) == 0 && active.others.count(name) == 0;
    }));
}

Names DocumentFonts::Choose(const Names& names, ActivationMode mode)
{
    if (mode == ActivationMode::kOff) return {};
    if (mode == ActivationMode::kAutomatic) return names;
    const Names open = Select(names, [this](const auto& name) { return !mRefusals.Has(name); });
    Names chosen;
    if (IsInteractive()) {
        chosen = AskForFonts(open, std::cin, std::cerr);
    } else if (!open.empty()) {
        LogError("cannot ask which fonts to activate: no terminal; not activated: " +
                 JoinNames(open));
    }
    const std::set<std::string> wanted(chosen.begin(), chosen.end());
    for (const std::string& name : open) {
        if (wanted.count(name) == 0) mRefusals.Add(name);
    }
    return chosen;
}

int DocumentFonts::ActivateInactive(const std::string& path, const Names& wanted)
{
    if (wanted.empty()) return 0;
    const Activation::Outcome outcome = mServices.activation.Activate(path, wanted);
    if (!outcome.failed.empty()) {
        throw Failure(StatusCodes::kNotFound,
                      "no readable file of the font library has " + JoinNames(outcome.failed));
    }
    if (outcome.activated.empty()) return 0;
    const Services::ActiveNames after = mServices.ListActive();
    const Names unseen =
        Select(outcome.activated, [&](const auto& name) { return after.ours.count(name) == 0; });
    if (!unseen.empty()) {
        throw Failure(StatusCodes::kError,
                      mServices.locations.activationFolder.string() +
                          ": fontconfig doesn't see what is activated there: " + JoinNames(unseen));
    }
    return static_cast<int>(outcome.activated.size());
}

bool DocumentFonts::CanActivate(const std::string& path, ActivationMode mode)
{
    return !path.empty() || mode == ActivationMode::kAutomatic;
}

int DocumentFonts::Activate(const std::string& path, const Names& names)
{
    mServices.ApplyLibraryChoice();
    const Services::ActiveNames before = mServices.ListActive();
    const Names inactive = Select(mServices.MatchFontNames(names),
                                  [&](const auto& name) { return before.others.count(name) == 0; });
    return ActivateInactive(path, path.empty() ? mServices.SelectFromLibrary(inactive) : inactive);
}

void DocumentFonts::ActivateNew(const std::string& path, const Names& names, ActivationMode mode)
{
    const std::set<std::string> held = mServices.activation.Hold(path, names);
    const Names added = Select(names, [&](const auto& name) { return held.count(name) == 0; });
    if (added.empty() || mode == ActivationMode::kOff) return;
    const Services::ActiveNames active = mServices.ListActive();
    const Names inactive = mServices.SelectFromLibrary(
        Select(added, [&](const auto& name) { return active.others.count(name) == 0; }));
    if (inactive.empty()) return;
    mRefusals.Continue(path);
    (void)ActivateInactive(path, Choose(inactive, mode));  // the number isn't needed here
}

void DocumentFonts::Save(const std::string& path, const std::string& usageText, ActivationMode mode)
{
    ReleaseClosed();
    if (usageText.empty()) {
        mServices.documentStore.Remember(path);
        return;
    }
    const Usage usage = ReadUsage(usageText);
    mServices.documentStore.StoreUsage(path, usageText);
    if (!usage.fonts) return;
    const Names names = GetAll(path, usage);
    SetUsed(path, names);
    if (mOpen.count(path) == 0) {
        mSaved.insert(path);
        // With blank documents around it may be one of them, whose close isn't reported.
        if (!mHasBlanks) mSavedAmong.emplace(path, mOpen);
    }
    ActivateNew(path, names, mode);
    const std::set<std::string>& used = mUsed[path];
    Names gone;
    for (const std::string& name : mServices.activation.GetHeld(path)) {
        if (used.count(name) == 0) gone.push_back(name);
    }
    mServices.activation.Release(path, gone);
}

void DocumentFonts::Release(const std::string& path)
{
    mOpen.erase(path);
    mSaved.erase(path);
    mSavedAmong.erase(path);
    mRefusals.Forget(path);
    if (mUsed.erase(path) != 0) mServices.documentStore.SetClosed(path);
    mServices.linkedDocuments.Forget(path);
    mListed.erase(path);
    mServices.activation.Release(path);
}

void DocumentFonts::ReleaseClosed()
{
    for (const std::string& path : Names(mSaved.begin(), mSaved.end())) {
        if (!IsOpenInHost(path).value_or(true)) Release(path);
    }
}

void DocumentFonts::ReleaseSaved()
{
    for (const std::string& path : Names(mSaved.begin(), mSaved.end())) {
        if (!IsOpenInHost(path).value_or(false)) Release(path);
    }
}

std::string DocumentFonts::AddBlank()
{
    mHasBlanks = true;
    return mServices.documentStore.AddBlank();
}

void DocumentFonts::Close(const std::string& path, const std::string& usage)
{
    Release(path);
    Names gone;
    for (auto& [saved, among] : mSavedAmong) {
        if (among.erase(path) != 0 && among.empty()) gone.push_back(saved);
    }
    for (const std::string& saved : gone) Release(saved);
    if (usage.empty() || documents::IsTemplatePath(path)) return;
    (void)ReadUsage(usage);  // throws, so that a bad report can't replace a good one
    mServices.documentStore.StoreUsage(path, usage);
}

void DocumentFonts::Update(const std::string& id, const std::string& usageText)
{
    const Usage usage = usageText.empty() ? Usage() : ReadUsage(usageText);
    if (!mServices.documentStore.StoreUsageOfId(id, usageText)) {
        throw Failure(StatusCodes::kNotFound, "no document has the id \"" + id + "\"");
    }
    const std::string path = mServices.documentStore.GetPath(id);
    if (path.empty() || !usage.fonts) return;
    SetUsed(path, GetAll(path, usage));
}

Names DocumentFonts::GetFonts(const std::string& path, const std::string& usageText)
{
    const std::string stored = mServices.documentStore.GetUsage(path);
    Usage usage = stored.empty() ? Usage() : ReadUsage(stored);
    if (!usageText.empty()) usage.fonts = ReadFontNames(usageText);
    if (!usage.fonts) usage.fonts.emplace();
    return GetAll(path, usage);
}

DocumentFonts::Result DocumentFonts::ActivateAll(const std::string& path,
                                                 const std::string& usageText)
{
    const Names names = GetFonts(path, usageText);
    mRefusals.Forget(path);
    SetUsed(path, names);
    const std::set<std::string> held = mServices.activation.Hold(path, names);
    const Services::ActiveNames active = mServices.ListActive();
    const Names inactive = Select(names, [&](const auto& name) {
        return held.count(name) == 0 && active.others.count(name) == 0;
    });
    const Names wanted = mServices.SelectFromLibrary(inactive);
    const std::set<std::string> inLibrary(wanted.begin(), wanted.end());
    Result result;
    result.missing = Select(inactive, [&](const auto& name) { return inLibrary.count(name) == 0; });
    if (wanted.empty()) return result;
    Activation::Outcome outcome = mServices.activation.Activate(path, wanted);
    result.activated = std::move(outcome.activated);
    result.missing.insert(result.missing.end(), outcome.failed.begin(), outcome.failed.end());
    return result;
}

Names DocumentFonts::ReleaseUnused()
{
    const std::set<std::string> before = mServices.activation.GetActive();
    std::set<std::string> usedByAny;
    for (const auto& [path, names] : mUsed) usedByAny.insert(names.begin(), names.end());
    for (const std::string& document : mServices.activation.GetHolders()) {
        const auto known = mUsed.find(document);
        if (known == mUsed.end() && !document.empty()) continue;
        // Fonts activated without a document are used if any document uses them.
        const std::set<std::string>& used = document.empty() ? usedByAny : known->second;
        Names unused;
        for (const std::string& name : mServices.activation.GetHeld(document)) {
            if (used.count(name) == 0) unused.push_back(name);
        }
        mServices.activation.Release(document, unused);
    }
    const std::set<std::string> after = mServices.activation.GetActive();
    Names deactivated;
    std::set_difference(before.begin(), before.end(), after.begin(), after.end(),
                        std::back_inserter(deactivated));
    return deactivated;
}

}  // namespace plugincore
