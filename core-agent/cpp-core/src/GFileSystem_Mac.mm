#import <Foundation/Foundation.h>

#include "GPlatformString.h"
#import "OSGuard_Mac.h"

namespace {

const char* GetText(NSString* text)
{
    const char* const bytes = [text UTF8String];
    return bytes != nullptr ? bytes : "";
}

// Runs the action and converts an NSException to a GPlatformException with its description.
template <class Action>
void Guarded(Action action)
{
    NSException* const exception =
        OSGuard([](void* context) { (*static_cast<Action*>(context))(); }, &action);
    if (exception != nil) throw GPlatformException(GetText([exception description]));
}

class MacString : public GPlatformString {
public:
    // Takes ownership of the caller's reference.
    explicit MacString(NSString* text) : mText(text) {}
    ~MacString() override { [mText release]; }
    MacString(const MacString&) = delete;
    MacString& operator=(const MacString&) = delete;

    std::string GetExpandedFileSystemRepresentation() const override
    {
        const char* representation = nullptr;
        Guarded([&] {
            representation = [[mText stringByExpandingTildeInPath] fileSystemRepresentation];
        });
        // The platform may return null instead of throwing; the text is then the description.
        if (representation == nullptr) throw GPlatformException(GetText(mText));
        return representation;
    }

private:
    NSString* mText;
};

std::unique_ptr<GPlatformString> Hold(NSString* text)
{
    if (text == nil) return nullptr;
    return std::make_unique<MacString>(text);
}

}  // namespace

std::unique_ptr<GPlatformString> GPlatformString::MakeFromUTF8(const char* text)
{
    NSString* string = nil;
    Guarded([&] { string = [[NSString alloc] initWithUTF8String:text]; });
    return Hold(string);
}

std::unique_ptr<GPlatformString> GPlatformString::MakeFromMacRoman(const char* text)
{
    NSString* string = nil;
    Guarded([&] {
        string = [[NSString alloc] initWithCString:text encoding:NSMacOSRomanStringEncoding];
    });
    return Hold(string);
}
