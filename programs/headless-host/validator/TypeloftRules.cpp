#include "validator/TypeloftRules.h"

#include <iterator>

namespace headless {

namespace {

constexpr char kCoreFamily[] = "PluginCore";
constexpr char kPeriodFamily[] = "dialog period";
constexpr char kPortFamily[] = "panel port";
constexpr char kShutdownFamily[] = "shutdown";

// isForTypeloftOnly
constexpr bool kOurPlugin = true;
constexpr bool kAnyPlugin = false;

const RuleRow kTypeloftRules[] = {
    {1101, 1, kOurPlugin, kCoreFamily,
     "At startup it calls each function of PluginCore that belongs to it."},
    {1102, 2, kOurPlugin, kCoreFamily,
     "A PluginCore that lacks any of the 26 functions is refused."},
    {1103, 2, kOurPlugin, kCoreFamily,
     "Without PluginCore it shows an alert and remains inactive."},
    {1104, 2, kOurPlugin, kCoreFamily,
     "A PluginCore that does not support the interface version is refused."},
    {1105, 3, kOurPlugin, kCoreFamily,
     "It remains inactive, without an alert, if PluginCore cannot start."},
    {1106, 5, kOurPlugin, kCoreFamily,
     "A status that the interface lets it ignore changes nothing."},
    {1107, 5, kOurPlugin, kCoreFamily,
     "An exception of a function ends one message and nothing else."},
    {1108, 4, kOurPlugin, kCoreFamily, "It does not trust the size that a function leaves."},
    {1109, 4, kOurPlugin, kCoreFamily,
     "A buffer that is full to its last byte is read only to its end."},
    {1110, 6, kOurPlugin, kCoreFamily,
     "Text that is not UTF-8, or has a zero byte inside, does no harm."},
    {1111, 3, kOurPlugin, kCoreFamily, "While PluginCore disables it, it leaves documents alone."},
    {1112, 4, kOurPlugin, kCoreFamily, "It asks before each document event whether it is enabled."},
    {1113, 3, kOurPlugin, kCoreFamily, "It asks twice per opened file which fonts to resolve."},
    {1114, 3, kOurPlugin, kCoreFamily,
     "It activates the fonts that the resolve dialog returns, and no others."},
    {1115, 5, kOurPlugin, kCoreFamily,
     "It removes the host's default fonts from the list to resolve."},
    {1116, 4, kOurPlugin, kCoreFamily, "A font list that is cut off leads to no resolve dialog."},
    {1117, 6, kOurPlugin, kCoreFamily, "A font list nested thousands of levels deep is refused."},
    {1118, 6, kOurPlugin, kCoreFamily, "A font list with values of wrong types does no harm."},
    {1119, 7, kOurPlugin, kCoreFamily, "Huge and malformed numbers in JSON do no harm."},
    {1120, 3, kOurPlugin, kCoreFamily,
     "Without menus it does not follow documents, but checks files."},
    {1121, 5, kOurPlugin, kCoreFamily,
     "A menu tree that breaks after the start leaves the items alone."},
    {1122, 4, kOurPlugin, kCoreFamily,
     "The library menu is rebuilt whenever PluginCore calls back for it."},
    {1123, 6, kOurPlugin, kCoreFamily,
     "A rebuild with a broken tree, or at an odd moment, does no harm."},
    {1124, 4, kOurPlugin, kCoreFamily,
     "A menu command reaches PluginCore with or without a document."},
    {1125, 3, kOurPlugin, kCoreFamily, "It reports each save of a document with a file."},
    {1126, 3, kOurPlugin, kCoreFamily, "It reports the close of a document with a file once."},
    {1127, 3, kOurPlugin, kCoreFamily, "It reports each new document once."},
    {1128, 4, kOurPlugin, kCoreFamily, "The host gets the status of the about dialog."},
    {1129, 2, kOurPlugin, kCoreFamily, "Each tick gives PluginCore its idle time once."},
    {1130, 5, kOurPlugin, kCoreFamily, "It does not call the functions that are only looked up."},
    {1131, 7, kOurPlugin, kCoreFamily,
     "A menu tree whose size changes between the two calls does no harm."},
    {1132, 6, kOurPlugin, kCoreFamily, "Settings that cannot be read leave suppression on."},
    {1133, 8, kOurPlugin, kCoreFamily,
     "PluginCore may fail once at any moment of a document's life."},
    {1134, 9, kOurPlugin, kCoreFamily, "PluginCore may fail in all functions at once."},

    {1201, 1, kAnyPlugin, kPeriodFamily, "It begins the host's own modal session for each dialog."},
    {1202, 1, kAnyPlugin, kPeriodFamily, "It hands the host's modal session back."},
    {1203, 2, kOurPlugin, kPeriodFamily, "The dialog is dismissed if there is nothing to resolve."},
    {1204, 3, kOurPlugin, kPeriodFamily, "The dialog is dismissed in each language of the host."},
    {1205, 3, kOurPlugin, kPeriodFamily,
     "The dialog is shown if the fonts could not be activated."},
    {1206, 4, kOurPlugin, kPeriodFamily, "The period ends 15 seconds after it began."},
    {1207, 4, kOurPlugin, kPeriodFamily, "A dismissed dialog leaves a period of 5 seconds."},
    {1208, 6, kOurPlugin, kPeriodFamily, "A clock that is set back does not end the period."},
    {1209, 6, kOurPlugin, kPeriodFamily, "A clock that is set forward ends the period."},
    {1210, 4, kOurPlugin, kPeriodFamily, "The setting of the user switches suppression off."},
    {1211, 5, kOurPlugin, kPeriodFamily, "A plug-in that starts disabled dismisses no dialog."},
    {1212, 5, kOurPlugin, kPeriodFamily,
     "The dialog is dismissed after the chosen fonts were activated."},
    {1213, 7, kOurPlugin, kPeriodFamily, "A clock at its limits does no harm."},

    {1301, 2, kOurPlugin, kPortFamily, "Ticks go on without an event bus."},
    {1302, 3, kOurPlugin, kPortFamily, "The first tick announces the port once."},
    {1303, 4, kOurPlugin, kPortFamily, "Each request is answered with the port of that moment."},
    {1304, 4, kOurPlugin, kPortFamily,
     "Without a port there is no answer, and the next request gets one."},
    {1305, 6, kOurPlugin, kPortFamily, "Any number is passed on as a port."},
    {1306, 6, kOurPlugin, kPortFamily,
     "An exception of GetSocketPort does not reach the event bus."},
    {1307, 5, kOurPlugin, kPortFamily, "A request in the middle of a message is answered."},
    {1308, 7, kOurPlugin, kPortFamily,
     "A PluginCore that does not take the event bus leaves the port alone."},
    {1309, 8, kOurPlugin, kPortFamily, "A request after the shutdown does no harm."},

    {1401, 1, kAnyPlugin, kShutdownFamily, "It shuts down right after its start."},
    {1402, 2, kAnyPlugin, kShutdownFamily, "It shuts down with open documents."},
    {1403, 3, kAnyPlugin, kShutdownFamily,
     "It shuts down with documents that were changed and not saved."},
    {1404, 4, kAnyPlugin, kShutdownFamily, "Messages after its shutdown do no harm."},
    {1405, 3, kOurPlugin, kShutdownFamily, "It terminates PluginCore once."},
    {1406, 5, kOurPlugin, kShutdownFamily,
     "A PluginCore that fails to end does not keep it from ending."},
    {1407, 4, kAnyPlugin, kShutdownFamily, "It can be started a second time in one process."},
    {1408, 6, kAnyPlugin, kShutdownFamily, "It can be started many times in one process."},
    {1409, 5, kOurPlugin, kShutdownFamily, "A second start starts PluginCore and the menus again."},
    {1410, 6, kAnyPlugin, kShutdownFamily,
     "It can be started again after a shutdown with open documents."},
    {1411, 7, kOurPlugin, kShutdownFamily, "It can be started again within a dialog period."},
    {1412, 5, kAnyPlugin, kShutdownFamily, "It can be unloaded with work pending."},
    {1413, 4, kOurPlugin, kShutdownFamily, "Messages after a refusal to start do no harm."},
    {1414, 6, kOurPlugin, kShutdownFamily, "It starts after a refusal once the reason is gone."},
    {1415, 4, kAnyPlugin, kShutdownFamily, "A second shutdown message does no harm."},
    {1416, 5, kOurPlugin, kShutdownFamily, "It refuses to be unloaded while it runs."},
    {1417, 7, kOurPlugin, kShutdownFamily,
     "It asks for the settings once more while it shuts down."},
    {1418, 7, kOurPlugin, kShutdownFamily, "A shutdown inside of another message is refused."},
    {1419, 8, kAnyPlugin, kShutdownFamily, "It shuts down even if the host's suites fail."},
};

}  // namespace

std::vector<RuleRow> ListTypeloftRules()
{
    return {std::begin(kTypeloftRules), std::end(kTypeloftRules)};
}

}  // namespace headless
