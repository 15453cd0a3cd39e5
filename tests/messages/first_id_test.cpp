// Serial numbers of messages from the start of a process. Nothing in this program
// builds a message before the test does.
#include <gtest/gtest.h>

#include "vglobal/messages/message.h"

namespace {

TEST(MessageSerialNumbers, StartAtOneAndEveryInitialisingConstructorUsesOneUp) {
  CMessage first(EMSG_ERROR, L"first");
  EXPECT_EQ(first.GetMsgID(), 1u);
  CMessage notDrawing;  // the default constructor draws nothing
  CMessage rebuilt(7L, L"rebuilt", 0L, 500L, 0L);
  EXPECT_EQ(rebuilt.GetMsgID(), 500u);
  CMessage third(EMSG_WARNING, L"third");
  EXPECT_EQ(third.GetMsgID(), 3u);
  EXPECT_EQ(notDrawing.GetMsgID(), 0u);
}

}  // namespace
