#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <string>

#include "GFileSystem.h"
#include "GFileSystemSpec.h"

namespace {

std::string AnyOf(const std::string& letters)
{
    return *rc::gen::container<std::string>(rc::gen::elementOf(letters));
}

// One component, without separators.
std::string AnyComponent()
{
    return *rc::gen::nonEmpty(
        rc::gen::container<std::string>(rc::gen::elementOf(std::string("ab. ~\"\\"))));
}

GFileSystemSpec AnyPath()
{
    GFileSystemSpec spec;
    const auto count = *rc::gen::inRange(1, 5);
    for (int index = 0; index < count; ++index) spec.AppendPathComponent(AnyComponent());
    return spec;
}

bool EndsInSeparator(const std::string& path) { return path.size() > 1 && path.back() == '/'; }

RC_GTEST_PROP(PathProperties, RemoveReversesAppend, ())
{
    GFileSystemSpec spec = AnyPath();
    const std::string before = spec.GetFullPath();
    const std::string component = AnyComponent();
    spec.AppendPathComponent(component);
    RC_ASSERT(spec.GetFullPath() == before + "/" + component);
    RC_ASSERT(spec.GetLastPathComponent() == component);
    RC_ASSERT(spec.RemoveLastPathComponent().GetFullPath() == before);
}

RC_GTEST_PROP(PathProperties, AppendReversesRemove, ())
{
    GFileSystemSpec spec = AnyPath();
    const std::string before = spec.GetFullPath();
    const std::string last = spec.GetLastPathComponent();
    spec.RemoveLastPathComponent().AppendPathComponent(last);
    RC_ASSERT(spec.GetFullPath() == before);
}

RC_GTEST_PROP(PathProperties, NoTrailingSeparatorIsKept, ())
{
    GFileSystemSpec spec;
    const std::string text = "/" + AnyOf("ab//");
    RC_ASSERT(spec.SetFullPath(text) == CoreErrorCodes::kSuccess);
    RC_ASSERT(!EndsInSeparator(spec.GetFullPath()));
    spec.AppendPathComponent(AnyOf("ab//"));
    RC_ASSERT(!EndsInSeparator(spec.GetFullPath()));
    spec.RemoveLastPathComponent();
    RC_ASSERT(!EndsInSeparator(spec.GetFullPath()));
}

RC_GTEST_PROP(PathProperties, WalkUpEndsAtTheEmptyPath, ())
{
    GFileSystemSpec spec = AnyPath();
    std::size_t steps = 0;
    while (!spec.GetFullPath().empty()) {
        const std::size_t before = spec.GetFullPath().size();
        spec.RemoveLastPathComponent();
        RC_ASSERT(spec.GetFullPath().size() < before);
        ++steps;
    }
    RC_ASSERT(steps >= 2U);  // the last component and the root
}

RC_GTEST_PROP(PathProperties, AnyBytesAfterTheRootAreAPath, ())
{
    const auto bytes = *rc::gen::arbitrary<std::string>();
    GFileSystemSpec spec;
    RC_ASSERT(spec.SetFullPath("/x" + bytes) == CoreErrorCodes::kSuccess);
    RC_ASSERT(spec.GetFullPath().compare(0, 2, "/x") == 0);
    // The stored path is valid UTF-8, so it is stored again unchanged.
    GFileSystemSpec again;
    RC_ASSERT(again.SetFullPath(spec.GetFullPath()) == CoreErrorCodes::kSuccess);
    RC_ASSERT(again.GetFullPath() == spec.GetFullPath());
}

RC_GTEST_PROP(PathProperties, RelativePathChangesNothing, ())
{
    GFileSystemSpec spec = AnyPath();
    const std::string before = spec.GetFullPath();
    RC_ASSERT(spec.SetFullPath("r" + AnyOf("ab/~")) == CoreErrorCodes::kInvalidParam);
    RC_ASSERT(spec.GetFullPath() == before);
}

RC_GTEST_PROP(PathProperties, NormalPathsAreUnchanged, ())
{
    std::string path = AnyPath().GetFullPath();
    const std::string before = path;
    RC_ASSERT(!GFileSystem::OSIsPartialPath(path));
    RC_ASSERT(GFileSystem::OSIsValidFullPath(path));
    RC_ASSERT(path == before);
}

}  // namespace
