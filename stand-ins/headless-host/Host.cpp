#include "Host.h"

#include <algorithm>
#include <stdexcept>

#include "HostPlatformTable.h"

namespace headless {

namespace {

Host* sCurrent = nullptr;

}  // namespace

Host::Host(FontSource& fontSource, DocumentReader documentReader)
    : fonts(fontSource, handles), reader(std::move(documentReader))
{
    if (sCurrent != nullptr) throw std::logic_error("there is a host already");
    sCurrent = this;
    ResetHostPlatform();
    errors.SetSink([this](const std::string& line) {
        journal.Write("host", "plug-in error", nlohmann::json::object(), line);
    });
}

Host::~Host() { sCurrent = nullptr; }

Host* Host::GetCurrent() { return sCurrent; }

DocumentObject* Host::AddDocument(documents::Document content, const std::string& path)
{
    const auto document = std::make_shared<DocumentObject>();
    document->content = std::move(content);
    document->hasFile = !document->content.isTemplate;
    document->path = document->hasFile ? path : "Untitled-" + std::to_string(++mUntitledCount);
    document->handle = handles.Issue(document);
    const auto addArt = [&](int16_t type, size_t count) {
        for (size_t i = 0; i < count; ++i) {
            auto art = std::make_shared<ArtItem>(ArtItem{document.get(), type, i});
            document->art.push_back(handles.Issue(std::move(art), document->handle));
        }
    };
    addArt(kTextFrameArt, document->content.frames.size());
    addArt(kPlacedArt, document->content.linkedFiles.size());
    mDocuments.push_back(document);
    mCurrent = document.get();
    return mCurrent;
}

void Host::RemoveDocument(DocumentObject* document)
{
    const auto place =
        std::find_if(mDocuments.begin(), mDocuments.end(),
                     [document](const auto& each) { return each.get() == document; });
    if (place == mDocuments.end()) return;
    const std::shared_ptr<DocumentObject> kept = *place;
    mDocuments.erase(place);
    mCurrent = mDocuments.empty() ? nullptr : mDocuments.back().get();
    handles.Expire(kept->handle);
}

}  // namespace headless
