// SPDX-License-Identifier: Apache-2.0
/// @file
/// Short messages over a screen ("toasts"): they pop in, stay three seconds, fade out, one after another.
#pragma once

#include "platform/uikit/UILabel.h"

#include <memory>
#include <string>
#include <vector>

namespace zorel {

/// One message. Times are those of the run loop; a message stays in its queue until it has faded, whatever
/// becomes of the view it is shown in.
class MessageView : public UIView {
public:
    using Queue = std::vector<std::unique_ptr<MessageView>>;

    explicit MessageView(const std::string& text);
    ~MessageView() override;

    /// Shows a message in the middle of a view, a little above its centre, when those asked for before have
    /// gone.
    static void toastInView(UIView& target, const std::string& text);
    /// Shows the head of the queue in a view. Without a view (its owner has destroyed it meanwhile) the
    /// message is shown in the one that it was asked for; one whose view has gone too is dropped and the next
    /// one takes its turn.
    static void nextToastInView(UIView* view);
    /// The message on screen and those that wait; nullptr when there are none.
    [[nodiscard]] static const Queue* toasts();

    [[nodiscard]] UILabel& textLabel() const { return *textLabel_; }
    /// Ends the message: it swells, shrinks and fades, and makes room for the next one after 2.0 s.
    void fadeToastOut();

private:
    void popIn(UIView& view);
    static void removeFaded();

    std::unique_ptr<UILabel> textLabel_;
    UIWeak<UIView> target_; ///< the view it was asked for
};

} // namespace zorel
