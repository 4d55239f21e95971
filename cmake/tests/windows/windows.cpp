#include <SV/qt/QtBackend.h>
#include <SV/ui/Window.h>

#if __has_include(<QString>) || __has_include(<QtCore/QString>)
#error "Qt is on the include path of a program that has windows by the toolkit"
#endif

struct Greeting : sv::Window {
    using Window::Window;
    void Paint(sv::Rectangle const& /*area*/) override { DrawText({10, 10}, "Hello"); }
};

int main(int argc, char** argv) {
    sv::qt::QtBackend const windows(argc, argv);
    Greeting window(nullptr);
    window.ChangeSizePixel({200, 40});
    return argc == 2 && sv::qt::SaveAs(window, argv[1]) ? 0 : 1;
}
