// SPDX-License-Identifier: Apache-2.0
#include "views/MessageView.h"

#include "common/GlobalFuncs.h"
#include "platform/uikit/RunLoop.h"
#include "platform/uikit/UIScreen.h"
#include "views/Settings.h"

#include <optional>

namespace zorel {
namespace {

constexpr UIColor kBoxColor = UIColor::colorWithRed(0.5, 0.5, 0.5, 0.8);
constexpr double kCornerRadius = 5.0;
constexpr double kScreenMargin = 40.0; ///< width of the screen that the text leaves free [pt]
constexpr double kTextHeight = 40.0;
constexpr double kTextCenter = 24.0;
constexpr CGSize kBoxMargin = {20.0, 10.0};
constexpr double kAboveCenter = 20.0;

constexpr double kSmall = 0.1;
constexpr double kLarge = 1.6;
constexpr double kFadeInTime = 0.2;  ///< [s]
constexpr double kPopTime = 0.4;     ///< [s]
constexpr double kSettleTime = 0.2;  ///< [s]
constexpr double kShownTime = 3.0;   ///< from the pop to the fade [s]
constexpr double kSwellTime = 0.5;   ///< [s]
constexpr double kShrinkTime = 0.5;  ///< [s]
constexpr double kFadeOutTime = 2.0; ///< [s]

/// The queue of the process; absent while there are no messages. It is never destroyed: at the end of the
/// program the platform's own statics may be gone before it.
std::optional<MessageView::Queue>& queue() {
    static auto& instance = *new std::optional<MessageView::Queue>();
    return instance;
}

} // namespace

MessageView::MessageView(const std::string& text) : UIView(CGRect{}) {
    setBackgroundColor(kBoxColor);
    setCornerRadius(kCornerRadius);
    setAutoresizingMask(UIViewAutoresizingNone);
    setAutoresizesSubviews(false);
    const Settings settings;
    const double width = UIScreen::mainScreen().bounds().width - kScreenMargin;
    textLabel_ = GlobalFuncs().addLabel_IOS7(*this, {width * 0.5, kTextCenter}, {width, kTextHeight},
                                             settings.fontName, settings.fontSize, text, settings.firstColor,
                                             1, false, false, 0);
    textLabel_->setNumberOfLines(2);
    textLabel_->setLineBreakMode(UILineBreakMode::wordWrapping);
}

MessageView::~MessageView() {
    removeAllSubviews();
}

const MessageView::Queue* MessageView::toasts() {
    return queue() ? &*queue() : nullptr;
}

void MessageView::toastInView(UIView& target, const std::string& text) {
    auto toast = std::make_unique<MessageView>(text);
    const CGSize label = toast->textLabel_->frame().size();
    toast->setFrame({0.0, 0.0, label.width + kBoxMargin.width, label.height + kBoxMargin.height});
    toast->setCenter({target.frame().width * 0.5, target.frame().height * 0.5 - kAboveCenter});
    toast->setAlpha(0.0);
    toast->target_ = UIWeak<UIView>(&target);
    const bool isFirst = !queue().has_value();
    if (isFirst) {
        queue().emplace();
    }
    queue()->push_back(std::move(toast));
    if (isFirst) {
        nextToastInView(&target);
    }
}

void MessageView::nextToastInView(UIView* view) {
    while (queue() && !queue()->empty()) {
        MessageView& toast = *queue()->front();
        UIView* parent = view != nullptr ? view : toast.target_.get();
        if (parent != nullptr) {
            toast.popIn(*parent);
            return;
        }
        queue()->erase(queue()->begin());
    }
    queue().reset();
}

/// Fades in within 0.2 s, while the box grows for 0.4 s and then settles for 0.2 s.
void MessageView::popIn(UIView& view) {
    view.addSubview(*this);
    animate(kFadeInTime, 0.0, UIViewAnimationOptions::allowUserInteraction, [this] { setAlpha(1.0); });
    setScale(kSmall);
    animate(
        kPopTime, [this] { setScale(kLarge); }, [this] { animate(kSettleTime, [this] { setScale(1.0); }); });
    performAfterDelay(kShownTime, [this] { fadeToastOut(); });
}

void MessageView::fadeToastOut() {
    animate(
        kSwellTime, [this] { setScale(kLarge); },
        [this] { animate(kShrinkTime, [this] { setScale(kSmall); }); });
    animate(
        kFadeOutTime, 0.0, UIViewAnimationOptions::allowUserInteraction, [this] { setAlpha(0.0); },
        [] { removeFaded(); });
}

/// The head of the queue has faded: the next message takes its place in the same view. The run loop keeps the
/// faded one until its event is over, as this is called from its own animation.
void MessageView::removeFaded() {
    if (!queue() || queue()->empty()) {
        return;
    }
    std::unique_ptr<MessageView> faded = std::move(queue()->front());
    queue()->erase(queue()->begin());
    UIView* parent = faded->superview();
    faded->removeFromSuperview();
    RunLoop::main().disposeLater(std::move(faded));
    nextToastInView(parent);
}

} // namespace zorel
