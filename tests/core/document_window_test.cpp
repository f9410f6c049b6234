// SPDX-License-Identifier: MIT
#include "core/document_window.h"

#include <gtest/gtest.h>

namespace tessit {
namespace {

TEST(UnsavedWorkDialog, has_three_answers) {
    const MessageDialog dialog = unsaved_work_dialog("Data in the Edit window has not been saved to file");
    EXPECT_EQ(dialog.Message, "Data in the Edit window has not been saved to file\rDo you want to save it?");
    EXPECT_EQ(dialog.Explanation, "If you don't save, your changes will be lost");
    EXPECT_EQ(dialog.Icon, DialogIcon::caution);
    EXPECT_EQ(dialog.ActionButton.Caption + "|" + dialog.AlternateActionButton.Caption, "Save|Don't Save");
    EXPECT_TRUE(dialog.ActionButton.Visible && dialog.AlternateActionButton.Visible && dialog.CancelButton.Visible);
}

} // namespace
} // namespace tessit
