#include "SDKPlugPlug.h"

#include "BundleRef_Mac.h"
#include "CFHolder_Mac.h"

namespace {

CFHolder<CFURLRef> MakeAbsoluteURL(CFURLRef folder, CFStringRef name)
{
    const CFHolder<CFURLRef> url(
        CFURLCreateCopyAppendingPathComponent(kCFAllocatorDefault, folder, name, true));
    return CFHolder<CFURLRef>(url ? CFURLCopyAbsoluteURL(url.get()) : nullptr);
}

}  // namespace

BundleRef OSOpenEventBus()
{
    const CFBundleRef host = CFBundleGetMainBundle();
    if (host == nullptr) return nullptr;
    const CFHolder<CFURLRef> folder(CFBundleCopyPrivateFrameworksURL(host));
    if (!folder) return nullptr;
    const CFHolder<CFURLRef> plain = MakeAbsoluteURL(folder.get(), CFSTR("PlugPlug.framework"));
    const CFHolder<CFURLRef> owl = MakeAbsoluteURL(folder.get(), CFSTR("PlugPlugOwl.framework"));
    if (!owl) return nullptr;
    const CFHolder<CFURLRef> owlPath(
        CFURLCreateFilePathURL(kCFAllocatorDefault, owl.get(), nullptr));
    if (!owlPath) return nullptr;
    const bool isOwlThere = CFURLResourceIsReachable(owlPath.get(), nullptr);
    const CFURLRef chosen = isOwlThere ? owl.get() : plain.get();
    return chosen != nullptr ? ToBundle(CFBundleCreate(kCFAllocatorDefault, chosen)) : nullptr;
}
