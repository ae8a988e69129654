#include <algorithm>
#include <memory>
#include <qpdf/Buffer.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFPageObjectHelper.hh>
#include <qpdf/QPDFWriter.hh>
#include <stdexcept>

#include "base/Utf8.h"
#include "documents/native/NativeAdditions.h"
#include "documents/pdf/filters/StreamFilters.h"
#include "documents/write/WriteDocument.h"
#include "documents/write/WriteXmp.h"

namespace documents {

namespace {

constexpr char kCreator[] = "Headless Host";

// A PDF in memory. `pdf` reads its streams from `bytes` until it is written, so both live together.
struct MemoryPdf {
    explicit MemoryPdf(std::string content) : bytes(std::move(content)), pdf(QPDF::create())
    {
        pdf->setSuppressWarnings(true);
        pdf->processMemoryFile("document", bytes.data(), bytes.size());
    }
    const std::string bytes;
    const std::shared_ptr<QPDF> pdf;
};

// All added lines in one font.
struct Block {
    std::string postScriptName;
    TextBlock text;
};

std::vector<Block> MakeBlocks(const WriteOrder& order, double width, double height)
{
    std::vector<Block> blocks;
    for (size_t i = 0; i < order.texts.size(); ++i) {
        const AddedText& text = order.texts[i];
        auto place = std::find_if(blocks.begin(), blocks.end(), [&](const Block& block) {
            return block.postScriptName == text.postScriptName;
        });
        if (place == blocks.end()) {
            blocks.push_back({text.postScriptName, {ChooseFont(order, text.postScriptName), {}}});
            place = blocks.end() - 1;
        }
        place->text.lines.push_back(PlaceLine(i, text.words, width, height));
    }
    return blocks;
}

void Rename(QPDFObjectHandle dictionary, const char* key, const std::string& name)
{
    QPDFObjectHandle value = dictionary.getKey(key);
    if (!value.isName()) return;
    const std::string old = value.getName().substr(1);
    const size_t plus = old.find('+');
    const std::string subset = plus == std::string::npos ? "" : old.substr(0, plus + 1);
    dictionary.replaceKey(key, QPDFObjectHandle::newName("/" + subset + name));
}

// Renames all fonts of a drawn page, keeping subset prefixes. Returns false if one is a Type 3
// font, which has no name in a PDF.
bool NameFonts(QPDF& drawn, const std::string& name)
{
    bool areNamed = true;
    for (QPDFObjectHandle object : drawn.getAllObjects()) {
        if (!object.isDictionary()) continue;
        QPDFObjectHandle subtype = object.getKey("/Subtype");
        if (subtype.isName() && subtype.getName() == "/Type3") areNamed = false;
        for (const char* const key : {"/BaseFont", "/FontName"}) Rename(object, key, name);
    }
    return areNamed;
}

std::unique_ptr<MemoryPdf> DrawBlock(const WriteOrder& order, const Block& block, double width,
                                     double height)
{
    auto drawn = std::make_unique<MemoryPdf>(DrawTextAsPdf(width, height, {block.text}));
    if (NameFonts(*drawn->pdf, block.postScriptName)) return drawn;
    // A bitmap font becomes a Type 3 font, which has no name in a PDF. Draw the text with the
    // substitute, like text in a missing font.
    TextBlock substituted = block.text;
    substituted.font = order.findFont(order.substituteFont);
    drawn = std::make_unique<MemoryPdf>(DrawTextAsPdf(width, height, {substituted}));
    if (!NameFonts(*drawn->pdf, block.postScriptName)) {
        throw std::runtime_error("there is no font to draw " + block.postScriptName + " with");
    }
    return drawn;
}

QPDFObjectHandle GetDictionary(QPDFObjectHandle owner, const std::string& key)
{
    if (!owner.getKey(key).isDictionary()) {
        owner.replaceKey(key, QPDFObjectHandle::newDictionary());
    }
    return owner.getKey(key);
}

// Draws a page on top of `page`, as a form XObject.
void AddForm(QPDF& pdf, QPDFPageObjectHelper& page, QPDF& drawn, const std::string& origin)
{
    QPDFObjectHandle form = pdf.copyForeignObject(
        QPDFPageDocumentHelper(drawn).getAllPages().at(0).getFormXObjectForPage());
    if (!page.getAttribute("/Resources", true).isDictionary()) {
        page.getObjectHandle().replaceKey("/Resources", QPDFObjectHandle::newDictionary());
    }
    QPDFObjectHandle resources = page.getAttribute("/Resources", true);
    // The dictionary may be shared with other pages, so give this page a copy.
    resources.replaceKey("/XObject", GetDictionary(resources, "/XObject").shallowCopy());
    int suffix = 0;
    const std::string name = resources.getUniqueResourceName("/AddedText", suffix);
    resources.getKey("/XObject").replaceKey(name, form);
    page.addPageContents(QPDFObjectHandle::newStream(&pdf, "q\n"), true);
    page.addPageContents(QPDFObjectHandle::newStream(&pdf, "\nQ\nq " + origin + name + " Do Q\n"),
                         false);
}

void AddTexts(const WriteOrder& order, QPDF& pdf, std::vector<std::unique_ptr<MemoryPdf>>& drawn)
{
    std::vector<QPDFPageObjectHelper> pages = QPDFPageDocumentHelper(pdf).getAllPages();
    if (pages.empty()) throw std::runtime_error("there is no page to put text on");
    const QPDFObjectHandle::Rectangle box = pages.front().getMediaBox().isRectangle()
                                                ? pages.front().getMediaBox().getArrayAsRectangle()
                                                : QPDFObjectHandle::Rectangle(0, 0, 595, 842);
    const double width = std::max(1.0, box.urx - box.llx);
    const double height = std::max(1.0, box.ury - box.lly);
    const std::string origin =
        "1 0 0 1 " + std::to_string(box.llx) + " " + std::to_string(box.lly) + " cm ";
    for (const Block& block : MakeBlocks(order, width, height)) {
        drawn.push_back(DrawBlock(order, block, width, height));
        AddForm(pdf, pages.front(), *drawn.back()->pdf, origin);
    }
}

std::string GetPacket(QPDF& pdf)
{
    QPDFObjectHandle metadata = pdf.getRoot().getKey("/Metadata");
    if (!metadata.isStream()) return {};
    const std::shared_ptr<Buffer> data = metadata.getStreamData(qpdf_dl_generalized);
    return {reinterpret_cast<const char*>(data->getBuffer()), data->getSize()};
}

void SetPacket(QPDF& pdf, const std::string& packet)
{
    QPDFObjectHandle metadata = QPDFObjectHandle::newStream(&pdf, packet);
    metadata.getDict().replaceKey("/Type", QPDFObjectHandle::newName("/Metadata"));
    metadata.getDict().replaceKey("/Subtype", QPDFObjectHandle::newName("/XML"));
    pdf.getRoot().replaceKey("/Metadata", metadata);
}

// The host can't write a native part. It remains unchanged; the additions are stored beside it.
// Without one, the pages hold the texts, and only the placed files are stored.
void StoreAdditions(const WriteOrder& order, QPDF& pdf)
{
    NativeAdditions additions = MakeAdditions(order);
    QPDFObjectHandle page = FindNativePage(pdf.getAllPages());
    if (page.isNull() && !pdf.getAllPages().empty()) {
        page = pdf.getAllPages().front();
        additions.texts.clear();
    }
    if (!page.isNull() && !additions.IsEmpty()) AppendAdditions(additions, pdf, page);
}

// The manifest matters beside a native part only.
void UpdateManifest(const WriteOrder& order, QPDF& pdf)
{
    if (order.addedLinks.empty() || FindNativePage(pdf.getAllPages()).isNull()) return;
    const std::string packet = ReplaceManifest(GetPacket(pdf), order.linkedFiles);
    SetPacket(pdf, packet.empty() ? MakeXmpPacket(kCreator, order.linkedFiles) : packet);
}

void AddEmptyPage(const WriteOrder& order, QPDF& pdf)
{
    pdf.addPage(QPDFObjectHandle::parse("<< /Type /Page /MediaBox [0 0 595 842] >>"), false);
    QPDFObjectHandle information = QPDFObjectHandle::newDictionary();
    information.replaceKey("/Creator", QPDFObjectHandle::newUnicodeString(kCreator));
    information.replaceKey("/Title", QPDFObjectHandle::newUnicodeString(order.title));
    pdf.getTrailer().replaceKey("/Info", pdf.makeIndirectObject(information));
    SetPacket(pdf, MakeXmpPacket(kCreator, {}));
}

}  // namespace

NativeAdditions MakeAdditions(const WriteOrder& order)
{
    NativeAdditions additions;
    for (const AddedText& text : order.texts) {
        additions.texts.push_back({text.postScriptName, base::CountCharacters(text.words)});
    }
    additions.files = order.addedLinks;
    return additions;
}

FontFile ChooseFont(const WriteOrder& order, const std::string& postScriptName)
{
    for (const std::string& name : {postScriptName, order.substituteFont}) {
        FontFile file = order.findFont(name);
        if (!file.path.empty() && CanDrawWith(file)) return file;
    }
    throw std::runtime_error("there is no font to draw " + postScriptName + " with");
}

std::string WritePdf(const WriteOrder& order)
{
    InstallStreamFilters();
    const std::shared_ptr<QPDF> pdf = QPDF::create();
    pdf->setSuppressWarnings(true);
    if (order.base.empty()) {
        pdf->emptyPDF();
        AddEmptyPage(order, *pdf);
    } else {
        pdf->processMemoryFile("document", order.base.data(), order.base.size());
        UpdateManifest(order, *pdf);
    }
    StoreAdditions(order, *pdf);
    std::vector<std::unique_ptr<MemoryPdf>> drawn;
    AddTexts(order, *pdf, drawn);

    QPDFWriter writer(*pdf);
    writer.setOutputMemory();
    writer.setMinimumPDFVersion("1.5");
    if (!pdf->isEncrypted()) writer.setDeterministicID(true);
    writer.write();
    const std::shared_ptr<Buffer> bytes = writer.getBufferSharedPointer();
    return {reinterpret_cast<const char*>(bytes->getBuffer()), bytes->getSize()};
}

}  // namespace documents
