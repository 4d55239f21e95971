#include "SV/headless/HeadlessBackend.h"

#include "SV/ui/Window.h"

#include <algorithm>
#include <map>

namespace sv::headless {

namespace {

class HeadlessPeer;

/// The peers of all windows.
std::map<Window const*, HeadlessPeer*>& Peers() {
    static std::map<Window const*, HeadlessPeer*>& peers = *new std::map<Window const*, HeadlessPeer*>;
    return peers;
}

class HeadlessPeer final : public detail::WindowPeer {
  public:
    explicit HeadlessPeer(Window& window) : window_(window), canvas_(Size()) { Peers()[&window] = this; }
    HeadlessPeer(HeadlessPeer const&) = delete;
    HeadlessPeer& operator=(HeadlessPeer const&) = delete;
    ~HeadlessPeer() override { Peers().erase(&window_); }

    detail::Canvas& GetCanvas() override { return canvas_; }
    void SetPosSize(Point /*position*/, Size size) override { size_ = size; }
    void Show(bool visible) override { isInvalid_ = isInvalid_ || visible; }
    void Enable(bool /*enabled*/) override { isInvalid_ = true; }
    void SetText(String const& /*text*/) override { isInvalid_ = true; }
    void Invalidate() override { isInvalid_ = true; }
    void GrabFocus() override {
        if (window_.IsEnabled()) window_.FocusGained();
    }
    void InsertEntry(String const& /*entry*/, int /*position*/) override { isInvalid_ = true; }
    void ClearEntries() override { isInvalid_ = true; }
    void SelectEntry(int /*position*/) override { isInvalid_ = true; }
    void SetChecked(bool /*checked*/) override { isInvalid_ = true; }
    void SetColumns(std::span<TableColumn const> /*columns*/) override { isInvalid_ = true; }
    void SetRowCount(int /*count*/) override { isInvalid_ = true; }
    void SelectRows(std::span<int const> /*rows*/) override { isInvalid_ = true; }
    void InsertMenu(String const& /*title*/) override { isInvalid_ = true; }
    void InsertMenuItem(String const& /*text*/, String const& /*shortcut*/) override { isInvalid_ = true; }

    RecordingCanvas const& Paint() {
        canvas_.Restart(size_);
        window_.Erase();
        window_.Paint(window_.GetArea());
        isInvalid_ = false;
        return canvas_;
    }
    [[nodiscard]] bool IsInvalid() const noexcept { return isInvalid_; }

  private:
    Window& window_;
    RecordingCanvas canvas_;
    Size size_;
    bool isInvalid_ = true;
};

}  // namespace

HeadlessBackend& HeadlessBackend::Instance() noexcept {
    static HeadlessBackend backend;
    return backend;
}

std::unique_ptr<detail::WindowPeer> HeadlessBackend::MakeWindow(Window& window, detail::WindowKind /*kind*/,
                                                                detail::WindowPeer* /*parent*/) {
    return std::make_unique<HeadlessPeer>(window);
}

std::unique_ptr<detail::Canvas> HeadlessBackend::MakeSurface(Size size) {
    return std::make_unique<RecordingCanvas>(size);
}

std::unique_ptr<detail::PrinterPeer> HeadlessBackend::MakePrinter(String const& name) {
    return std::make_unique<HeadlessPrinter>(name, printers_);
}

Bitmap Render(Window& window) {
    Bitmap picture = Peers().at(&window)->Paint().Pixels();
    for (Window* const child : window.GetChildren()) {
        if (!child->IsVisible()) continue;
        Point const place = child->GetPosPixel();
        picture.Paste(place.X(), place.Y(), Render(*child));
    }
    return picture;
}

std::vector<DrawCall> Record(Window& window) { return Peers().at(&window)->Paint().Calls(); }

bool IsInvalid(Window const& window) { return Peers().at(&window)->IsInvalid(); }

}  // namespace sv::headless
