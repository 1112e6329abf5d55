// SPDX-License-Identifier: Apache-2.0
#include "host/ViewPainter.h"

#include "host/PainterContext.h"
#include "platform/uikit/UIControl.h"
#include "platform/uikit/UILabel.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace zorel {

namespace {

/// A ground that hides what lies behind it: the colours on it need no change in dark surroundings.
constexpr double kOwnGround = 0.5;
constexpr float kOwnGroundShade = 0.35F;
constexpr float kOwnGroundAlpha = 0.95F;

QFont hostFont(const UIFont& font) {
    QFont result(font.name.empty() ? QString() : QString::fromStdString(font.name));
    result.setPixelSize(std::max(1, static_cast<int>(std::lround(font.size))));
    return result;
}

Qt::Alignment horizontal(UITextAlignment alignment) {
    switch (alignment) {
    case UITextAlignment::center:
        return Qt::AlignHCenter;
    case UITextAlignment::right:
        return Qt::AlignRight;
    case UITextAlignment::left:
        break;
    }
    return Qt::AlignLeft;
}

/// One line: made smaller down to half its size when the label asks for it, then cut at its end.
void paintLine(QPainter& painter, const UILabel& label, const QRectF& box, const QString& text) {
    constexpr double smallest = 0.5;
    const QFontMetricsF metrics(painter.font());
    const double width = metrics.horizontalAdvance(text);
    double factor = 1.0;
    if (label.adjustsFontSizeToFitWidth() && width > box.width() && width > 0.0) {
        factor = std::max(smallest, box.width() / width);
    }
    painter.save();
    painter.translate(box.topLeft());
    painter.scale(factor, factor);
    const QRectF scaled(0.0, 0.0, box.width() / factor, box.height() / factor);
    const QString shown = metrics.elidedText(text, Qt::ElideRight, scaled.width());
    painter.drawText(scaled, static_cast<int>(horizontal(label.textAlignment()) | Qt::AlignVCenter), shown);
    painter.restore();
}

/// Several lines: broken at words, the last allowed one cut at its end, the block centred vertically.
void paintLines(QPainter& painter, const UILabel& label, const QRectF& box, const QString& text) {
    const QFontMetricsF metrics(painter.font());
    const int most = label.numberOfLines() > 0 ? label.numberOfLines() : 1000;
    QTextLayout layout(text, painter.font());
    QStringList lines;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid() && lines.size() < most;
         line = layout.createLine()) {
        line.setLineWidth(box.width());
        const QString rest = text.mid(line.textStart());
        lines << (lines.size() + 1 == most ? metrics.elidedText(rest, Qt::ElideRight, box.width())
                                           : text.mid(line.textStart(), line.textLength()).trimmed());
    }
    layout.endLayout();
    double y = box.top() + (box.height() - metrics.height() * static_cast<double>(lines.size())) / 2.0;
    for (const QString& line : lines) {
        const QRectF place(box.left(), y, box.width(), metrics.height());
        painter.drawText(place, static_cast<int>(horizontal(label.textAlignment())), line);
        y += metrics.height();
    }
}

void paintText(QPainter& painter, const UILabel& label, const QRectF& box, const QColor& color) {
    const QString text = QString::fromStdString(label.text());
    painter.setPen(color);
    if (label.numberOfLines() == 1) {
        paintLine(painter, label, box, text);
    } else {
        paintLines(painter, label, box, text);
    }
}

/// Space up to the first control to the right of a label: a long name ends before it, a short one may use it.
double roomOf(const UILabel& label) {
    constexpr double gap = 8.0;
    const CGRect& frame = label.frame();
    double end = frame.x + frame.width;
    for (UIView* sibling :
         label.superview() != nullptr ? label.superview()->subviews() : std::vector<UIView*>()) {
        const CGRect& other = sibling->frame();
        const bool beside = dynamic_cast<const UIControl*>(sibling) != nullptr && !sibling->isHidden() &&
                            other.x > frame.x && other.y < frame.y + frame.height &&
                            frame.y < other.y + other.height;
        if (beside) {
            // The drawing of a control is as wide as it is high, in its middle.
            end = other.midX() - std::min(other.width, other.height) / 2.0 - gap;
        }
    }
    return std::max(0.0, end - frame.x);
}

/// @param ownGround whether the text stands on a ground that its view brings along
void paintLabel(QPainter& painter, const UILabel& label, bool dark, bool ownGround) {
    if (label.text().empty()) {
        return;
    }
    painter.setFont(hostFont(label.font()));
    const bool leading = label.textAlignment() == UITextAlignment::left;
    const QRectF box(0.0, 0.0, leading ? roomOf(label) : label.frame().width, label.frame().height);
    if (label.shadow()) {
        const CGSize offset = label.shadow()->offset;
        paintText(painter, label, box.translated(offset.width, offset.height),
                  shownColor(label.shadow()->color, false));
    }
    const QColor color =
        ownGround ? shownColor(label.textColor(), false) : seenColor(label.textColor(), dark, kTextContrast);
    paintText(painter, label, box, color);
}

void paintBackground(QPainter& painter, const UIView& view) {
    if (view.backgroundColor().alpha() <= 0.0) {
        return;
    }
    painter.setPen(Qt::NoPen);
    // A translucent ground carries a text of its own: it is made dark enough for it.
    QColor ground = shownColor(view.backgroundColor(), false);
    if (ground.alpha() < 255) {
        ground = QColor::fromHslF(ground.hslHueF(), ground.hslSaturationF(),
                                  ground.lightnessF() * kOwnGroundShade, kOwnGroundAlpha);
    }
    painter.setBrush(ground);
    painter.drawRoundedRect(QRectF(0.0, 0.0, view.frame().width, view.frame().height), view.cornerRadius(),
                            view.cornerRadius());
}

/// Colours stay as they are on a ground that a view brings along.
struct Surroundings {
    bool dark = false;
    bool ownGround = false;
    QColor tint;
};

void paintOn(QPainter& painter, UIView& view, const Surroundings& around);

void paintSubview(QPainter& painter, UIView& view, const Surroundings& around) {
    if (view.isHidden() || view.presentationAlpha() <= 0.0) {
        return;
    }
    const CGRect& frame = view.frame();
    painter.save();
    painter.setOpacity(painter.opacity() * view.presentationAlpha());
    painter.translate(frame.midX(), frame.midY());
    painter.scale(view.presentationScale(), view.presentationScale());
    painter.translate(-frame.width / 2.0, -frame.height / 2.0);
    paintOn(painter, view, around);
    painter.restore();
}

void paintOn(QPainter& painter, UIView& view, const Surroundings& around) {
    const bool own = view.backgroundColor().alpha() >= kOwnGround;
    const Surroundings inside{around.dark && !own, around.ownGround || own, around.tint};
    paintBackground(painter, view);
    PainterContext context(painter, inside.dark, inside.tint);
    view.drawRect(context);
    if (view.kind() == UIViewKind::label) {
        paintLabel(painter, static_cast<const UILabel&>(view), inside.dark, inside.ownGround);
    }
    const std::vector<UIView*> subviews = view.subviews();
    for (UIView* subview : subviews) {
        paintSubview(painter, *subview, inside);
    }
}

} // namespace

void paintView(QPainter& painter, UIView& view, bool dark, const QColor& tint) {
    paintOn(painter, view, {dark, false, tint});
}

} // namespace zorel
