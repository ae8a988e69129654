#include "docfonts/html/SummaryHtml.h"

#include <cstdint>

#include "docfonts/html/HtmlText.h"
#include "docfonts/html/StateWords.h"

namespace docfonts {
namespace {

using Write = std::function<void(std::string_view)>;

std::string CountDocuments(uint64_t number)
{
    return FormatNumber(number) + (number == 1 ? " document" : " documents");
}

struct Row {
    const StateWords* words;
    uint64_t count;
};

// The shares of the states in the total, for the eye: the numbers are in the table.
template <size_t kCount>
void AppendShares(const Row (&rows)[kCount], uint64_t total, std::string& html)
{
    constexpr double kWidth = 1000;
    html +=
        "<svg class=\"shares\" aria-hidden=\"true\" viewBox=\"0 0 1000 1\""
        " preserveAspectRatio=\"none\">";
    double start = 0;
    for (const Row& row : rows) {
        if (row.count == 0) continue;
        const double width = kWidth * static_cast<double>(row.count) / static_cast<double>(total);
        html += std::string("<rect class=\"") + row.words->style + "\" x=\"" +
                std::to_string(start) + "\" width=\"" + std::to_string(width) + "\" height=\"1\"/>";
        start += width;
    }
    html += "</svg>";
}

template <size_t kCount>
void AppendTotals(const char* heading, const Row (&rows)[kCount], bool isMore, std::string& html)
{
    uint64_t total = 0;
    for (const Row& row : rows) total += row.count;
    html += std::string("<div class=\"total\"><table><caption>") + heading + " <b>" +
            FormatNumber(total) + (isMore ? "+" : "") + "</b></caption><tbody>";
    for (const Row& row : rows) {
        html +=
            std::string("<tr") + (row.count == 0 ? " class=\"zero\"" : "") + "><th scope=\"row\">";
        AppendBadge(*row.words, html);
        html += "</th><td class=\"number\">" + FormatNumber(row.count) + "</td></tr>";
    }
    html += "</tbody></table>";
    if (total > 0) AppendShares(rows, total, html);
    html += "</div>\n";
}

void AppendVerdict(const Totals& totals, std::string& html)
{
    const uint64_t complete = totals.Get(DocumentState::kComplete);
    const uint64_t incomplete = totals.Get(DocumentState::kIncomplete);
    const uint64_t unread = totals.Get(DocumentState::kUnread);
    const uint64_t all = totals.GetDocuments();
    const DocumentState state = incomplete > 0 ? DocumentState::kIncomplete
                                : unread > 0   ? DocumentState::kUnread
                                               : DocumentState::kComplete;
    std::string text;
    if (all == complete) {
        text = all == 0 ? "No documents." : "Every font and placed file is here.";
    } else {
        if (incomplete > 0) {
            text = (all == 1 ? "The document"
                             : FormatNumber(incomplete) + " of " + CountDocuments(all)) +
                   (incomplete == 1 ? " needs" : " need") + " something that is not here.";
        }
        if (unread > 0) {
            text += (text.empty() ? "" : " ") + CountDocuments(unread) + " cannot be read.";
        }
    }
    html += std::string("<p class=\"verdict ") + GetWords(state).style + "\">";
    AppendBadge(GetWords(state), html, text);
    html += "</p>\n";
}

void WriteNeeders(Demand& demand, const Demand::Thing& thing, const Write& write)
{
    write("<td><p class=\"count\">" + CountDocuments(thing.documents) +
          "</p><ul class=\"needers\">\n");
    demand.ForEachDocument(thing, [&](uint64_t number, std::string_view document) {
        std::string html = "<li><a href=\"#d" + std::to_string(number) + "\"><bdi>";
        AppendName(document, html);
        write(html + "</bdi></a></li>\n");
    });
    write("</ul></td>");
}

struct DemandTable {
    const char* heading;
    const char* thing;
    const char* before;  // the detail of a thing
    const StateWords* words;
};

void WriteTable(Demand& demand, const DemandTable& table, const Write& write)
{
    const auto things = demand.List();
    if (things.empty()) return;
    std::string head = std::string("<table class=\"demand ") + table.words->style + "\"><caption>";
    AppendBadge(*table.words, head, table.heading);
    write(head + " <b>" + FormatNumber(things.size()) +
          "</b></caption><thead><tr><th scope=\"col\">" + table.thing +
          "</th><th scope=\"col\">Needed by</th></tr></thead><tbody>\n");
    for (const Demand::Thing* thing : things) {
        std::string html = "<tr><th scope=\"row\"><bdi>";
        AppendName(thing->name, html);
        html += "</bdi>";
        if (!thing->detail.empty()) {
            html += std::string(" <small>") + table.before + "<bdi>";
            AppendName(thing->detail, html);
            html += "</bdi></small>";
        }
        write(html + "</th>");
        WriteNeeders(demand, *thing, write);
        write("</tr>\n");
    }
    write("</tbody></table>\n");
    if (demand.GetOmitted() > 0) {
        write(
            "<p class=\"none\">The list is full; the documents below show what else they need."
            "</p>\n");
    }
}

void AppendChoice(const char* value, const std::string& label, bool isChosen, std::string& html)
{
    html += std::string("<label><input type=\"radio\" name=\"state\" id=\"only-") + value +
            "\" value=\"" + value + "\"" + (isChosen ? " checked" : "") + "><span>" + label +
            "</span></label>";
}

}  // namespace

std::string GetTitle(const Totals& totals)
{
    return "Fonts of " + CountDocuments(totals.GetDocuments());
}

std::string MakeSummary(const Totals& totals, const std::string& note)
{
    std::string html = "<header class=\"top\"><h1>" + GetTitle(totals) + "</h1>\n";
    if (!note.empty()) {
        html += "<p class=\"note\">";
        AppendName(note, html);
        html += "</p>\n";
    }
    AppendVerdict(totals, html);
    html += "<div class=\"totals\">\n";
    const auto row = [&](auto state) { return Row{&GetWords(state), totals.Get(state)}; };
    AppendTotals("Documents",
                 {row(DocumentState::kComplete), row(DocumentState::kIncomplete),
                  row(DocumentState::kUnread)},
                 false, html);
    AppendTotals("Fonts",
                 {row(FontState::kInstalled), row(FontState::kInLibrary),
                  row(FontState::kOtherStyle), row(FontState::kMissing)},
                 totals.IsFull(), html);
    AppendTotals("Placed files",
                 {row(PlacedState::kFound), row(PlacedState::kMoved), row(PlacedState::kMissing)},
                 false, html);
    return html + "</div></header>\n";
}

void WriteDemands(Demands& demands, const Write& write)
{
    const bool isEmpty = demands.fonts.List().empty() && demands.styles.List().empty() &&
                         demands.files.List().empty();
    if (isEmpty) return;
    write(
        "<section class=\"demands\" aria-labelledby=\"demands\"><h2 id=\"demands\">"
        "What is not here</h2>\n");
    WriteTable(demands.fonts, {"Missing fonts", "Font", "", &GetWords(FontState::kMissing)}, write);
    WriteTable(demands.styles,
               {"Only as another style", "Font", "here is ", &GetWords(FontState::kOtherStyle)},
               write);
    WriteTable(demands.files,
               {"Missing placed files", "File", "", &GetWords(PlacedState::kMissing)}, write);
    write("</section>\n");
}

std::string MakeFilter(const Totals& totals)
{
    if (totals.GetDocuments() < 2) return {};
    const auto label = [&](DocumentState state) {
        return std::string(GetWords(state).word) + " <b>" + FormatNumber(totals.Get(state)) +
               "</b>";
    };
    const auto style = [](DocumentState state) { return GetWords(state).style; };
    std::string html = "<form class=\"filter\"><fieldset><legend>Show</legend>";
    AppendChoice("all", "all <b>" + FormatNumber(totals.GetDocuments()) + "</b>", true, html);
    for (const DocumentState state :
         {DocumentState::kIncomplete, DocumentState::kUnread, DocumentState::kComplete}) {
        AppendChoice(style(state), label(state), false, html);
    }
    return html +
           "</fieldset><label class=\"search\" hidden>Find "
           "<input type=\"search\" placeholder=\"document, font, file or word\" "
           "autocomplete=\"off\" spellcheck=\"false\"></label>"
           "<output aria-live=\"polite\"></output></form>\n";
}

}  // namespace docfonts
