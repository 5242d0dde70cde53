#include "panels/description_strip.h"

#include <QLabel>
#include <QTime>

#include "bridge/core_text.h"
#include "bridge/date_text.h"
#include "bridge/twips.h"
#include "display/world_texts.h"
#include "model/rule_error.h"
#include "panels/designed_label.h"
#include "session/replay_session.h"
#include "widgets/clock_face.h"

namespace trelvin {

namespace {

// The label at its place in the designed area, which the strip's corner is taken from.
template <typename Label = QLabel>
Label* makeLabel(QWidget* strip, const char* caption, int left, int top, int width, int height) {
    return DesignedLabel<Label>(strip, caption, Qt::AlignHCenter, left - DescriptionStrip::kLeft,
                                top - DescriptionStrip::kTop, width, height);
}

// The description's box reaches one pixel into the frame of the ways of viewing below it; its
// text keeps above the frame.
constexpr int kDescriptionBottom = 1200 + 855;
constexpr int kViewFrameTop = 2040;

}  // namespace

DescriptionStrip::DescriptionStrip(const ReplaySession& session, QWidget* parent)
    : QWidget(parent), session_(session) {
    static_assert(kLeft % kTwipsPerPixel == 0 && kTop % kTwipsPerPixel == 0, "children keep their designed pixels");
    PlaceByTwips(this, kLeft, kTop, 6375, 1455);
    lblTah = makeLabel(this, "0", 2760, 600, 975, 255);
    lblTah->setObjectName(QStringLiteral("lblTah"));
    pHod = new ClockFace(this);
    pHod->setObjectName(QStringLiteral("pHod"));
    PlaceByTwips(pHod, 120 - kLeft, 960 - kTop, ClockFace::kSizeTwips, ClockFace::kSizeTwips);
    lblCas = makeLabel(this, "", 1200, 840, 5295, 375);
    lblCas->setObjectName(QStringLiteral("lblCas"));
    lbl = makeLabel<FittingLabel>(this, "", 1200, 1200, 5295, 855);
    lbl->setObjectName(QStringLiteral("lbl"));
    lbl->setWordWrap(true);
    lbl->setContentsMargins(0, 0, 0, TwipsToPixels(kDescriptionBottom - kViewFrameTop));

    connect(&session, &ReplaySession::positionChanged, this, [this] {
        showTexts();
        try {
            showClock();
        } catch (const std::exception&) {
            // After a failed load the current event may not exist: the clock shows no hands.
        }
    });
}

void DescriptionStrip::showTexts() {
    const WorldState& world = session_.world();
    lbl->setText(FromUtf8(DescriptionText(world)));
    lblTah->setText(FromUtf8(PositionText(session_.position(), world.eventCount)));
    lblCas->setText(GeneralDateText(world.currentTime));
}

void DescriptionStrip::showClock() {
    pHod->setTime(std::nullopt);
    const int index = session_.position();
    const std::optional<DateTime> time = ClockTimeAt(session_.world(), index);
    if (!time)
        throw RuleError(RuleError::Kind::OutOfRange,
                        "Index mimo rozsah: udalost " + std::to_string(index) + " neexistuje");
    pHod->setTime(QTime(time->hour(), time->minute(), time->second()));
}

}  // namespace trelvin
