#include "commands/Prompt.h"

#include <histedit.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <stdexcept>

#include "session/SessionWords.h"
#include "system/Interrupts.h"

namespace headless {

namespace {

constexpr int kHistoryLength = 1000;

struct EndEditor {
    void operator()(EditLine* editor) const { el_end(editor); }
};
struct EndHistory {
    void operator()(History* history) const { history_end(history); }
};

// The start of the last word: after the last unquoted space.
size_t FindLastWord(const std::string& text)
{
    size_t start = 0;
    char quote = '\0';
    for (size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (quote == '\0' && (c == '"' || c == '\'')) {
            quote = c;
        } else if (c == quote) {
            quote = '\0';
        } else if (quote == '\0' && (c == ' ' || c == '\t')) {
            start = i + 1;
        }
    }
    return start;
}

std::string GetCommonStart(const std::vector<std::string>& words)
{
    std::string start = words.front();
    for (const std::string& word : words) {
        const auto end = std::mismatch(start.begin(), start.end(), word.begin(), word.end()).first;
        start.erase(end, start.end());
    }
    return start;
}

// Makes the editor read UTF-8 even where the user's locale doesn't define an encoding.
void UseWideLetters()
{
    if (std::setlocale(LC_CTYPE, "") != nullptr && MB_CUR_MAX > 1) return;
    (void)std::setlocale(LC_CTYPE, "C.UTF-8");  // without this locale, only ASCII works
}

class Prompt : public LineSource {
public:
    Prompt(IdleWork idle, Completer completer, std::string historyFile)
        : mIdle(std::move(idle)),
          mCompleter(std::move(completer)),
          mHistoryFile(std::move(historyFile)),
          mEditor(MakeEditor()),
          mHistory(history_init())
    {
        if (!mEditor || !mHistory) throw std::runtime_error("the terminal cannot be used");
        HistEvent event;
        (void)history(mHistory.get(), &event, H_SETSIZE, kHistoryLength);  // unlimited by default
        (void)history(mHistory.get(), &event, H_SETUNIQUE, 1);
        // Fails before the first session, when there is no file.
        if (!mHistoryFile.empty()) {
            (void)history(mHistory.get(), &event, H_LOAD, mHistoryFile.c_str());
        }
        EditLine* const editor = mEditor.get();
        // None of these fail for a valid editor.
        (void)el_set(editor, EL_CLIENTDATA, this);
        (void)el_set(editor, EL_PROMPT, GivePrompt);
        (void)el_set(editor, EL_EDITOR, "emacs");
        (void)el_set(editor, EL_HIST, history, mHistory.get());
        (void)el_set(editor, EL_GETCFN, ReadCharacter);
        (void)el_set(editor, EL_ADDFN, "complete-word", "Complete the word", CompleteWord);
        (void)el_set(editor, EL_BIND, "^I", "complete-word", nullptr);
        (void)el_set(editor, EL_BIND, "^R", "em-inc-search-prev", nullptr);
    }

    ~Prompt() override
    {
        if (mHistoryFile.empty()) return;
        HistEvent event;
        const mode_t mask = umask(0077);  // only the user may read what they typed
        (void)history(mHistory.get(), &event, H_SAVE,
                      mHistoryFile.c_str());  // losing the history is no failure
        (void)umask(mask);
    }
    Prompt(const Prompt&) = delete;
    Prompt& operator=(const Prompt&) = delete;

    std::optional<std::string> Next() override
    {
        int count = 0;
        const char* const text = IsInterrupted() ? nullptr : el_gets(mEditor.get(), &count);
        if (text == nullptr || count <= 0) {
            (void)std::fputs("\n", stdout);  // so that the shell's prompt begins a line
            return std::nullopt;
        }
        std::string line(text, static_cast<size_t>(count));
        while (!line.empty() && (line.back() == '\n' || line.back() == '\r')) line.pop_back();
        HistEvent event;
        if (!line.empty()) (void)history(mHistory.get(), &event, H_ENTER, line.c_str());
        return line;
    }

private:
    static EditLine* MakeEditor()
    {
        UseWideLetters();  // el_init reads the locale
        return el_init("headless-host", stdin, stdout, stderr);
    }

    static Prompt& GetPrompt(EditLine* editor)
    {
        void* prompt = nullptr;
        (void)el_get(editor, EL_CLIENTDATA, &prompt);  // set by the constructor
        return *static_cast<Prompt*>(prompt);
    }

    static char* GivePrompt(EditLine*)
    {
        static char text[] = "host> ";
        return text;
    }

    // Called by the editor: reads the next character and ticks until it arrives. Returns 1, or 0 at
    // the end of the input.
    static int ReadCharacter(EditLine* editor, wchar_t* character)
    {
        constexpr int kMillisecondsPerSecond = 1000;
        const IdleWork& idle = GetPrompt(editor).mIdle;
        std::mbstate_t state = {};
        while (!IsInterrupted()) {
            struct pollfd input = {STDIN_FILENO, POLLIN, 0};
            const int ready = poll(&input, 1, kMillisecondsPerSecond / idle.ticksPerSecond);
            if (ready == 0) idle.tick();
            if (ready <= 0) continue;
            char byte = 0;
            const ssize_t count = read(STDIN_FILENO, &byte, 1);
            if (count < 0 && errno == EINTR) continue;
            if (count <= 0) return 0;
            const size_t used = std::mbrtowc(character, &byte, 1, &state);
            if (used == static_cast<size_t>(-2)) continue;  // incomplete: needs more bytes
            if (used == static_cast<size_t>(-1)) {
                *character = L'?';  // invalid in the user's locale
            }
            return 1;
        }
        return 0;
    }

    // Called by the editor for the Tab key: completes the word at the cursor, or lists the words
    // that fit if they have no more characters in common.
    static unsigned char CompleteWord(EditLine* editor, int)
    {
        const LineInfo* const line = el_line(editor);
        const std::string before(line->buffer, line->cursor);
        const size_t start = FindLastWord(before);
        std::string typed = before.substr(start);
        const size_t typedBytes = typed.size();
        if (!typed.empty() && (typed.front() == '"' || typed.front() == '\'')) typed.erase(0, 1);
        const std::vector<std::string> words =
            GetPrompt(editor).mCompleter(before.substr(0, start), typed);
        if (words.empty()) return CC_REFRESH_BEEP;
        const std::string common = GetCommonStart(words);
        const bool isWhole = words.size() == 1;
        if (isWhole || common.size() > typed.size()) {
            std::string text = QuoteSessionWord(common);
            const bool isQuoted = text.front() == '"';
            const bool goesOn = !isWhole || common.back() == '/';
            if (goesOn && isQuoted) text.pop_back();
            if (!goesOn) text += ' ';
            (void)el_deletestr(editor, static_cast<int>(typedBytes));
            if (el_insertstr(editor, text.c_str()) != 0) return CC_ERROR;
            return CC_REFRESH;
        }
        (void)std::fputs("\n", stdout);  // a failure only loses the list
        for (const std::string& word : words) (void)std::fprintf(stdout, "%s\n", word.c_str());
        return CC_REDISPLAY;
    }

    const IdleWork mIdle;
    const Completer mCompleter;
    const std::string mHistoryFile;
    const std::unique_ptr<EditLine, EndEditor> mEditor;
    const std::unique_ptr<History, EndHistory> mHistory;
};

}  // namespace

std::unique_ptr<LineSource> ReadPrompt(IdleWork idle, Completer completer,
                                       const std::string& historyFile)
{
    return std::make_unique<Prompt>(std::move(idle), std::move(completer), historyFile);
}

}  // namespace headless
