#include "CppCoreMacros.h"

#include <atomic>
#include <cstdio>

namespace {

std::atomic<CoreErrorReceiver> sReceiver{nullptr};

constexpr char kReportFormat[] = "Error='%s'  File='%s'  Line=%d  Expression='%s'  Code='%u'  ";

}  // namespace

std::string FormatCoreError(const std::string& name, const char* file, int line,
                            const char* expression, unsigned int code)
{
    const int length =
        std::snprintf(nullptr, 0, kReportFormat, name.c_str(), file, line, expression, code);
    if (length <= 0) return std::string();
    std::string text(static_cast<size_t>(length) + 1, '\0');
    // The length was measured by the call above.
    (void)std::snprintf(&text[0], text.size(), kReportFormat, name.c_str(), file, line, expression,
                        code);
    text.pop_back();
    return text;
}

void SetCoreErrorReceiver(CoreErrorReceiver receiver) { sReceiver = receiver; }

void ReportCoreError(const char* category, int level, unsigned int code, const char* expression,
                     const char* file, int line) noexcept
{
    const CoreErrorReceiver receiver = sReceiver;
    if (receiver != nullptr) receiver(category, level, code, expression, file, line);
}
