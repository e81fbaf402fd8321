#include "editor/history.h"

#include <gtest/gtest.h>

namespace ZOVEngine {
namespace {

/// Adds a letter to a text, and takes it away.
class Letter final : public EditCommand {
 public:
  Letter(std::string* text, char letter) : m_text(text), m_letter(letter) { Redo(); }
  void Undo() override { m_text->pop_back(); }
  void Redo() override { m_text->push_back(m_letter); }
  std::string Label() const override { return {m_letter}; }

 private:
  std::string* m_text;
  char m_letter;
};

class HistoryTest : public ::testing::Test {
 protected:
  void Write(const std::string& letters) {
    for (const char letter : letters) m_history.Add(std::make_unique<Letter>(&m_text, letter));
  }

  std::string m_text;
  History m_history;
};

TEST_F(HistoryTest, UndoAndRedoWalkThroughTheGestures) {
  Write("abc");
  EXPECT_TRUE(m_history.Undo());
  EXPECT_EQ(m_text, "ab");
  EXPECT_TRUE(m_history.Redo());
  EXPECT_EQ(m_text, "abc");
  EXPECT_FALSE(m_history.Redo());
}

TEST_F(HistoryTest, NothingIsUndoneBeforeTheFirstGesture) {
  EXPECT_FALSE(m_history.Undo());
  EXPECT_EQ(m_history.Changes(), 0u);
}

TEST_F(HistoryTest, ANewGestureDropsThoseThatWereTakenBack) {
  Write("abc");
  m_history.GoTo(1);
  Write("x");
  EXPECT_EQ(m_text, "ax");
  EXPECT_EQ(m_history.Size(), 2u);
  EXPECT_EQ(m_history.Label(1), "x");
}

TEST_F(HistoryTest, GoToJumpsBothWaysAndStopsAtTheEnd) {
  Write("abcd");
  m_history.GoTo(0);
  EXPECT_EQ(m_text, "");
  m_history.GoTo(99);
  EXPECT_EQ(m_text, "abcd");
}

TEST_F(HistoryTest, TheSavedStateIsFoundAgain) {
  Write("ab");
  m_history.MarkSaved();
  m_history.Undo();
  EXPECT_FALSE(m_history.IsSaved());
  m_history.Redo();
  EXPECT_TRUE(m_history.IsSaved());
}

TEST_F(HistoryTest, ASavedStateThatWasDroppedNeverComesBack) {
  Write("ab");
  m_history.MarkSaved();
  m_history.Undo();
  Write("c");
  EXPECT_FALSE(m_history.IsSaved());
  m_history.Undo();
  EXPECT_FALSE(m_history.IsSaved());
}

}  // namespace
}  // namespace ZOVEngine
