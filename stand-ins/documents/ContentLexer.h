#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace documents {

enum class TokenType {
    kEnd,
    kNumber,
    kName,
    kString,
    kArrayOpen,
    kArrayClose,
    kDictionaryOpen,
    kDictionaryClose,
    kOperator,
};

struct Token {
    TokenType type = TokenType::kEnd;
    // As it stands in the content: a name without its slash, a string without its delimiters.
    std::string_view text;
    size_t length = 0;  // how many bytes a string stands for
};

// Splits the content of a PDF page into tokens, in the way of forgiving readers: what is no token
// (a stray closing parenthesis, braces) is passed over, and a string without an end ends with the
// content. Allocates nothing and never fails; the tokens are views into the content.
class ContentLexer {
public:
    explicit ContentLexer(std::string_view content) : mRest(content) {}

    Token Next();

    // What comes behind the last token.
    std::string_view GetRest() const { return mRest; }
    void Skip(size_t bytes);

private:
    void SkipSpacesAndComments();
    Token TakeLiteralString();
    Token TakeHexString();
    Token TakeRegular(TokenType type, size_t length);

    std::string_view mRest;
};

// Blank in the sense of PDF: NUL, tab, line feed, form feed, carriage return and space.
bool IsPdfSpace(char c);

// The name that stands for `text`, the token's: #xx becomes the byte.
std::string DecodeName(std::string_view text);

}  // namespace documents
