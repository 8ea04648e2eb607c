// Script files: how lines are cut, which are kept, the size of the array, and names found
// whatever their case.
#include "formats/script_file.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace tarvelle;

namespace {

std::string Write(const QTemporaryDir& dir, const char* name, const std::string& text) {
    const std::string path = dir.filePath(name).toStdString();
    QFile f(QString::fromStdString(path));
    EXPECT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(text.data(), static_cast<qint64>(text.size()));
    return path;
}

TEST(ScriptFile, LinesEndAtCrLfLfOrLoneCrAndALastLineWithoutEndCounts) {
    const struct { std::string text; std::vector<std::string> lines; } cases[] = {
        {"a\r\nb\nc\rd", {"a", "b", "c", "d"}}, {"a\r\n\r\nb\r\n", {"a", "", "b"}},
        {"x\n\r", {"x", ""}}, // LF then a lone CR: two ends
        {"", {}}, {"tab\there  ", {"tab\there  "}},
    };
    for (const auto& c : cases) EXPECT_EQ(SplitTextLines(c.text), c.lines) << c.text;
}

// Lines under three bytes and comments are dropped, two empty entries follow, and a file of more
// than 1001 kept lines loses the surplus.
TEST(ScriptFile, ShortAndCommentLinesAreDroppedTwoEmptyEntriesFollowAndTheSurplusIsLost) {
    QTemporaryDir dir;
    const auto lines = ReadScriptLines(Write(dir, "s.scp", "AB\r\n\\\\ note\r\nA = (1)\r\n   \r\n\\ single\r\nEXIT"));
    ASSERT_TRUE(lines);
    // "   " is three bytes and stays; a single backslash is no comment.
    EXPECT_EQ(*lines, (std::vector<std::string>{"A = (1)", "   ", "\\ single", "EXIT", "", ""}));
    EXPECT_FALSE(ReadScriptLines(dir.filePath("none.scp").toStdString()));
    std::string text;
    for (int i = 0; i < 1005; ++i) text += "A = (" + std::to_string(i) + ")\n";
    const auto longer = ReadScriptLines(Write(dir, "long.scp", text));
    ASSERT_TRUE(longer);
    ASSERT_EQ(longer->size(), 1003u);
    EXPECT_EQ((*longer)[1000], "A = (1000)");
    EXPECT_EQ((*longer)[1001], "");
}

TEST(ScriptFile, TextRoundTripKeepsCommentsAndShortLines) {
    QTemporaryDir dir;
    const std::vector<std::string> lines = {"\\\\ note", "AB", "PAUSE (1)"};
    const std::string path = dir.filePath("b.scp").toStdString();
    ASSERT_TRUE(WriteScriptText(path, lines));
    EXPECT_EQ(ReadScriptText(path), lines);
    QFile f(QString::fromStdString(path));
    f.open(QIODevice::ReadOnly);
    EXPECT_EQ(f.readAll(), QByteArray("\\\\ note\r\nAB\r\nPAUSE (1)\r\n"));
}

// Names are found whatever their case; upper case changes only the letters a to z.
TEST(ScriptFile, NamesAreFoundWhateverTheirCase) {
    QTemporaryDir dir;
    QDir(dir.path()).mkpath("Sub/Deeper");
    const std::string real = Write(dir, "Sub/Deeper/Focus.scp", "EXIT");
    const std::string base = dir.path().toStdString();
    EXPECT_EQ(FindFileAnyCase(base + "/SUB/DEEPER/FOCUS.SCP"), real);
    EXPECT_EQ(FindFileAnyCase(real), real);
    EXPECT_EQ(FindFileAnyCase(base + "/SUB/NONE.SCP"), base + "/SUB/NONE.SCP");
    EXPECT_EQ(UpperAscii("a=(b) \xe9z\t"), "A=(B) \xe9Z\t");
}

} // namespace
