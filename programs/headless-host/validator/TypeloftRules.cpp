#include "validator/TypeloftRules.h"

#include <iterator>

namespace headless {

namespace {

constexpr char kCore[] = "PluginCore";
constexpr char kPeriod[] = "dialog period";
constexpr char kPort[] = "panel port";
constexpr char kShutdown[] = "shutdown";

// isForTypeloftOnly
constexpr bool kOurs = true;
constexpr bool kAny = false;

const RuleRow kTypeloftRules[] = {
    {1101, 1, kOurs, kCore, "At startup it calls each function of PluginCore that belongs to it."},
    {1102, 2, kOurs, kCore, "A PluginCore that lacks any of the 26 functions is refused."},
    {1103, 2, kOurs, kCore, "Without PluginCore it shows an alert and remains inactive."},
    {1104, 2, kOurs, kCore, "A PluginCore that does not support the interface version is refused."},
    {1105, 3, kOurs, kCore, "It remains inactive, without an alert, if PluginCore cannot start."},
    {1106, 5, kOurs, kCore, "A status that the interface lets it ignore changes nothing."},
    {1107, 5, kOurs, kCore, "An exception of a function ends one message and nothing else."},
    {1108, 4, kOurs, kCore, "It does not trust the size that a function leaves."},
    {1109, 4, kOurs, kCore, "A buffer that is full to its last byte is read only to its end."},
    {1110, 6, kOurs, kCore, "Text that is not UTF-8, or has a zero byte inside, does no harm."},
    {1111, 3, kOurs, kCore, "While PluginCore disables it, it leaves documents alone."},
    {1112, 4, kOurs, kCore, "It asks before each document event whether it is enabled."},
    {1113, 3, kOurs, kCore, "It asks twice per opened file which fonts to resolve."},
    {1114, 3, kOurs, kCore,
     "It activates the fonts that the resolve dialog returns, and no others."},
    {1115, 5, kOurs, kCore, "It removes the host's default fonts from the list to resolve."},
    {1116, 4, kOurs, kCore, "A font list that is cut off leads to no resolve dialog."},
    {1117, 6, kOurs, kCore, "A font list nested thousands of levels deep is refused."},
    {1118, 6, kOurs, kCore, "A font list with values of wrong types does no harm."},
    {1119, 7, kOurs, kCore, "Huge and malformed numbers in JSON do no harm."},
    {1120, 3, kOurs, kCore, "Without menus it does not follow documents, but checks files."},
    {1121, 5, kOurs, kCore, "A menu tree that breaks after the start leaves the items alone."},
    {1122, 4, kOurs, kCore, "The library menu is rebuilt whenever PluginCore calls back for it."},
    {1123, 6, kOurs, kCore, "A rebuild with a broken tree, or at an odd moment, does no harm."},
    {1124, 4, kOurs, kCore, "A menu command reaches PluginCore with or without a document."},
    {1125, 3, kOurs, kCore, "It reports each save of a document with a file."},
    {1126, 3, kOurs, kCore, "It reports the close of a document with a file once."},
    {1127, 3, kOurs, kCore, "It reports each new document once."},
    {1128, 4, kOurs, kCore, "The host gets the status of the about dialog."},
    {1129, 2, kOurs, kCore, "Each tick gives PluginCore its idle time once."},
    {1130, 5, kOurs, kCore, "It does not call the functions that are only looked up."},
    {1131, 7, kOurs, kCore, "A menu tree whose size changes between the two calls does no harm."},
    {1132, 6, kOurs, kCore, "Settings that cannot be read leave suppression on."},
    {1133, 8, kOurs, kCore, "PluginCore may fail once at any moment of a document's life."},
    {1134, 9, kOurs, kCore, "PluginCore may fail in all functions at once."},

    {1201, 1, kAny, kPeriod, "It begins the host's own modal session for each dialog."},
    {1202, 1, kAny, kPeriod, "It hands the host's modal session back."},
    {1203, 2, kOurs, kPeriod, "The dialog is dismissed if there is nothing to resolve."},
    {1204, 3, kOurs, kPeriod, "The dialog is dismissed in each language of the host."},
    {1205, 3, kOurs, kPeriod, "The dialog is shown if the fonts could not be activated."},
    {1206, 4, kOurs, kPeriod, "The period ends 15 seconds after it began."},
    {1207, 4, kOurs, kPeriod, "A dismissed dialog leaves a period of 5 seconds."},
    {1208, 6, kOurs, kPeriod, "A clock that is set back does not end the period."},
    {1209, 6, kOurs, kPeriod, "A clock that is set forward ends the period."},
    {1210, 4, kOurs, kPeriod, "The setting of the user switches suppression off."},
    {1211, 5, kOurs, kPeriod, "A plug-in that starts disabled dismisses no dialog."},
    {1212, 5, kOurs, kPeriod, "The dialog is dismissed after the chosen fonts were activated."},
    {1213, 7, kOurs, kPeriod, "A clock at its limits does no harm."},

    {1301, 2, kOurs, kPort, "Ticks go on without an event bus."},
    {1302, 3, kOurs, kPort, "The first tick announces the port once."},
    {1303, 4, kOurs, kPort, "Each request is answered with the port of that moment."},
    {1304, 4, kOurs, kPort, "Without a port there is no answer, and the next request gets one."},
    {1305, 6, kOurs, kPort, "Any number is passed on as a port."},
    {1306, 6, kOurs, kPort, "An exception of GetSocketPort does not reach the event bus."},
    {1307, 5, kOurs, kPort, "A request in the middle of a message is answered."},
    {1308, 7, kOurs, kPort, "A PluginCore that does not take the event bus leaves the port alone."},
    {1309, 8, kOurs, kPort, "A request after the shutdown does no harm."},

    {1401, 1, kAny, kShutdown, "It shuts down right after its start."},
    {1402, 2, kAny, kShutdown, "It shuts down with open documents."},
    {1403, 3, kAny, kShutdown, "It shuts down with documents that were changed and not saved."},
    {1404, 4, kAny, kShutdown, "Messages after its shutdown do no harm."},
    {1405, 3, kOurs, kShutdown, "It terminates PluginCore once."},
    {1406, 4, kOurs, kShutdown, "A PluginCore that fails to end does not keep it from ending."},
    {1407, 4, kAny, kShutdown, "It can be started a second time in one process."},
    {1408, 6, kAny, kShutdown, "It can be started many times in one process."},
    {1409, 5, kOurs, kShutdown, "A second start starts PluginCore and the menus again."},
    {1410, 6, kAny, kShutdown, "It can be started again after a shutdown with open documents."},
    {1411, 7, kOurs, kShutdown, "It can be started again within a dialog period."},
    {1412, 5, kAny, kShutdown, "It can be unloaded with work pending."},
    {1413, 4, kOurs, kShutdown, "Messages after a refusal to start do no harm."},
    {1414, 6, kOurs, kShutdown, "It starts after a refusal once the reason is gone."},
    {1415, 4, kAny, kShutdown, "A second shutdown message does no harm."},
    {1416, 5, kOurs, kShutdown, "It refuses to be unloaded while it runs."},
    {1417, 7, kOurs, kShutdown, "It asks for the settings once more while it shuts down."},
    {1418, 7, kOurs, kShutdown, "A shutdown inside of another message is refused."},
    {1419, 8, kAny, kShutdown, "It shuts down even if the host's suites fail."},
};

}  // namespace

std::vector<RuleRow> ListTypeloftRules()
{
    return {std::begin(kTypeloftRules), std::end(kTypeloftRules)};
}

}  // namespace headless
