#include "validator/report/JunitFile.h"

#include <pugixml.hpp>
#include <sstream>

#include "base/Strings.h"
#include "base/Utf8.h"

namespace headless {

namespace {

// XML has no characters for the control characters.
std::string MakeXmlText(const std::string& text)
{
    return base::ToValidUtf8(base::MakePrintable(text));
}

void Increment(pugi::xml_attribute attribute) { attribute.set_value(attribute.as_uint() + 1); }

pugi::xml_node FindSuite(pugi::xml_node all, const std::string& family)
{
    const std::string name = MakeXmlText(family);
    pugi::xml_node suite = all.find_child_by_attribute("testsuite", "name", name.c_str());
    if (suite) return suite;
    suite = all.append_child("testsuite");
    suite.append_attribute("name").set_value(name.c_str());
    for (const char* const count : {"tests", "failures", "skipped"}) {
        suite.append_attribute(count).set_value(0U);
    }
    return suite;
}

void AddCase(pugi::xml_node all, const JunitCase& which)
{
    pugi::xml_node suite = FindSuite(all, which.family);
    Increment(suite.attribute("tests"));
    pugi::xml_node test = suite.append_child("testcase");
    test.append_attribute("classname").set_value(("rule " + std::to_string(which.rule)).c_str());
    test.append_attribute("name").set_value(MakeXmlText(which.name).c_str());
    if (which.result == CaseResult::kPassed) return;
    const bool isFailed = which.result == CaseResult::kFailed;
    Increment(suite.attribute(isFailed ? "failures" : "skipped"));
    pugi::xml_node result = test.append_child(isFailed ? "failure" : "skipped");
    result.append_attribute("message").set_value(MakeXmlText(which.message).c_str());
    std::string text;
    for (const std::string& line : which.details) text += MakeXmlText(line) + "\n";
    if (!text.empty()) result.text().set(text.c_str());
}

}  // namespace

std::string WriteJunit(const std::vector<JunitCase>& cases)
{
    pugi::xml_document document;
    pugi::xml_node all = document.append_child("testsuites");
    for (const JunitCase& which : cases) AddCase(all, which);
    std::ostringstream text;
    document.save(text, "  ");
    return text.str();
}

}  // namespace headless
