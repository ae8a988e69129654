#include <gtest/gtest.h>
#include <sqlite3.h>

#include "CoreTestHome.h"
#include "plugin-core/activation/Activation.h"
#include "plugin-core/activation/ProcessIdentity.h"

using namespace plugincore;

namespace {

// A library of `count` fonts in files of their own, which are in the index without being read.
class LargeLibrary {
public:
    explicit LargeLibrary(size_t count)
    {
        Transaction transaction(mDatabase);
        Statement file(mDatabase,
                       "INSERT INTO font_file(library, path, modified, size) VALUES(?, ?, 0, 0)"
                       " RETURNING id");
        Statement face(mDatabase,
                       "INSERT INTO font_face(file, name, face_index, is_type1)"
                       " VALUES(?, ?, 0, 0)");
        for (size_t number = 0; number < count; ++number) {
            names.push_back("Face" + std::to_string(number));
            const std::string path = mFolder.Write("library/" + names.back() + ".ttf", "");
            const int64_t id =
                file.Bind(mFolder.Path("library")).Bind(path).Step() ? file.GetNumber(0) : 0;
            file.Run();
            face.Bind(id).Bind(names.back()).Run();
        }
        transaction.Commit();
        mPrograms.Enter("test");
    }

    // Returns the number of instructions that SQLite executes during `work`.
    template <class Work>
    int64_t CountSteps(Work work)
    {
        int64_t steps = 0;
        const auto add = [](unsigned, void* sum, void* statement, void*) {
            *static_cast<int64_t*>(sum) += sqlite3_stmt_status(
                static_cast<sqlite3_stmt*>(statement), SQLITE_STMTSTATUS_VM_STEP, 1);
            return 0;
        };
        (void)sqlite3_trace_v2(mDatabase.GetConnection(), SQLITE_TRACE_PROFILE, add, &steps);
        work();
        (void)sqlite3_trace_v2(mDatabase.GetConnection(), 0, nullptr, nullptr);
        return steps;
    }

    std::vector<std::string> names;

private:
    ScratchFolder mFolder;
    Database mDatabase{mFolder.Path("fonts.db")};
    FontLibrary mLibrary{mDatabase, {mFolder.Path("library")}};
    Programs mPrograms{mDatabase, GetIdentityOfThisProcess()};

public:
    Activation activation{mDatabase, mLibrary, mPrograms, ActivationFolder(mFolder.Path("active")),
                          GetIdentityOfThisProcess()};
};

struct Steps {
    int64_t activate = 0;
    int64_t release = 0;
};

Steps CountStepsForFonts(size_t count)
{
    LargeLibrary fonts(count);
    Steps steps;
    steps.activate = fonts.CountSteps([&] {
        EXPECT_EQ(count, fonts.activation.Activate("/a.ai", fonts.names).activated.size());
    });
    steps.release = fonts.CountSteps([&] { fonts.activation.Release("/a.ai"); });
    EXPECT_TRUE(fonts.activation.GetActive().empty());
    return steps;
}

// Proportional to the number of fonts would be 2, to its square 4.
TEST(ActivationCostTest, TwiceTheFontsTakeAboutTwiceTheSteps)
{
    constexpr size_t kFonts = 300;
    constexpr double kMostGrowth = 2.4;
    const Steps once = CountStepsForFonts(kFonts);
    const Steps twice = CountStepsForFonts(2 * kFonts);
    ASSERT_GT(once.activate, static_cast<int64_t>(kFonts));
    ASSERT_GT(once.release, static_cast<int64_t>(kFonts));
    EXPECT_LT(static_cast<double>(twice.activate), kMostGrowth * static_cast<double>(once.activate))
        << once.activate << " steps, then " << twice.activate;
    EXPECT_LT(static_cast<double>(twice.release), kMostGrowth * static_cast<double>(once.release))
        << once.release << " steps, then " << twice.release;
}

}  // namespace
