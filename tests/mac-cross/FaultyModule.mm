// Compiles and links, but check-bundle must refuse it: it exports a second name, sends a private
// selector and imports a function that no list has.

#import <AppKit/AppKit.h>

@interface NSWindow (Private)
- (void)_privateSelector;
@end

extern "C" void NewerFunction(NSWindow* window);

extern "C" __attribute__((visibility("default"))) void Extra(NSWindow* window);

void Extra(NSWindow* window)
{
    [window _privateSelector];
    NewerFunction(window);
}

extern "C" __attribute__((visibility("default"))) void PluginMain();

void PluginMain() {}
