#include "Apps/report/ReportPage.h"

namespace report {

namespace {

constexpr char Ellipsis = '\x85';  // in the suite's code page

}  // namespace

int ReportPage::Width() const { return printer_.maxCurPos().X() - printer_.curPos().X(); }
int ReportPage::Room() const { return printer_.maxCurPos().Y() - printer_.curPos().Y(); }

void ReportPage::Ensure(int room) {
    if (Room() < room) printer_.NewPage();
}

void ReportPage::Skip(int distance) { printer_.setPos(printer_.curPos() + sv::Point(0, distance)); }

sv::String ReportPage::Fitting(sv::String const& text, int width) const {
    if (printer_.GetTextSize(text).Width() <= width) return text;
    sv::String part = text;
    do {
        part.Erase(part.Len() - 1);
    } while (!part.IsEmpty() && printer_.GetTextSize(part + Ellipsis).Width() > width);
    return part + Ellipsis;
}

void ReportPage::Write(ReportColumn const& column, sv::String const& text, std::optional<sv::Color> color) {
    if (text.IsEmpty()) return;
    DrawingState const before(printer_);
    if (color) {
        sv::Font font = printer_.GetFont();
        font.ChangeColor(*color);
        printer_.ChangeFont(font);
    }
    sv::String const shown = Fitting(text, column.width);
    bool const isRight = column.end == ReportColumn::End::Right;
    printer_.WriteString(shown, isRight ? column.place - printer_.GetTextSize(shown).Width() : column.place);
}

void ReportPage::Rule() {
    sv::Point const place = printer_.curPos();
    printer_.DrawLine(place, {printer_.maxCurPos().X(), place.Y()});
}

void ReportPage::NextLine(std::function<void()> const& head) {
    int const before = printer_.curPos().Y();
    printer_.WriteLn(1);
    if (printer_.curPos().Y() < before) head();
}

}  // namespace report
