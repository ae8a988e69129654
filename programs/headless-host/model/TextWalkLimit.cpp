#include "model/TextWalkLimit.h"

#include <chrono>

namespace headless {

TextWalkLimit::TextWalkLimit()
    : clock([] {
          const auto now = std::chrono::steady_clock::now().time_since_epoch();
          return std::chrono::duration<double>(now).count();
      })
{
}

bool TextWalkLimit::IsOver(DocumentObject& document)
{
    const double now = clock();
    if (mLast) document.walkSeconds += now - *mLast;
    mLast = now;
    if (document.walkSeconds <= kSeconds) return false;
    if (!document.tookTooLong && sink) sink(document);
    document.tookTooLong = true;
    return true;
}

std::string TextWalkLimit::Describe()
{
    return "takes the plug-in longer than " + std::to_string(static_cast<int>(kSeconds)) +
           " s to read";
}

}  // namespace headless
