#include "examples/gallery/shots.h"

#include <fstream>

#include "examples/gallery/front_page.h"
#include "examples/gallery/gallery_frame.h"
#include "examples/gallery/ids.h"
#include "platform/testing/input.h"
#include "platform/testing/sight.h"

namespace gallery {

namespace {

constexpr DWORD kTipMillis = 600;  // any tip is there by then

bool Save(const std::string& path) { return platform::testing::SavePicture(nullptr, path); }

struct ModalShot {
    std::string path;
    BYTE closing_key = VK_ESCAPE;
    bool saved = false;
};

// The picture is taken while the box waits; a key then ends it.
void ShootModal(void* context) {
    auto& shot = *static_cast<ModalShot*>(context);
    shot.saved = Save(shot.path);
    keybd_event(shot.closing_key, 0, 0, 0);
    keybd_event(shot.closing_key, 0, KEYEVENTF_KEYUP, 0);
}

class Photographer {
public:
    Photographer(GalleryFrame& frame, std::string folder)
        : frame_(frame), folder_(std::move(folder)) {}

    void Shoot(const char* name) {
        platform::testing::Pump();
        good_ = Save(folder_ + "/" + name + ".png") && good_;
    }

    void ShootBoxOf(int button, const char* name, BYTE closing_key = VK_ESCAPE) {
        ModalShot shot{folder_ + "/" + name + ".png", closing_key};
        platform::testing::WhenIdle(ShootModal, &shot);
        platform::testing::Click(Control(button));
        good_ = shot.saved && good_;
    }

    HWND Control(int id) const { return ::GetDlgItem(frame_.page().GetSafeHwnd(), id); }
    bool good() const { return good_; }

private:
    GalleryFrame& frame_;
    std::string folder_;
    bool good_ = true;
};

void ShootFront(FrontPage& front, Photographer& photographer) {
    using platform::testing::Click;
    Click(front.orders(), 100, 120);
    Click(front.stops(), 290, 55);
    photographer.Shoot("front_edit");
    Click(front.tree());  // the focus leaves list and tree
    platform::testing::MovePointer(platform::testing::ScreenPoint(front.buttons().WithTip()));
    platform::testing::PumpFor(kTipMillis);
    photographer.Shoot("front_tip");
    platform::testing::MovePointer(platform::testing::ScreenPoint(front.stops(), 400, 33));
    platform::testing::PumpFor(kTipMillis);
    photographer.Shoot("front_list_tip");
    Click(front.buttons().WithItems());
    photographer.Shoot("front_items");
}

}  // namespace

bool WriteTexts(GalleryFrame& frame, const std::string& path) {
    std::ofstream file(path);
    for (const auto& seen : platform::testing::SeenTexts(frame)) file << seen.utf8 << '\n';
    return file.good();
}

bool TakeShots(GalleryFrame& frame, const std::string& folder) {
    using platform::testing::Click;
    using platform::testing::Key;
    Photographer photographer(frame, folder);
    photographer.Shoot("start");
    Click(photographer.Control(kPlainText));
    Key('A', platform::testing::Modifier::kControl);
    photographer.Shoot("edit");
    Click(photographer.Control(kPickList));
    photographer.Shoot("list_open");
    Key(VK_ESCAPE);
    RECT date{};
    GetClientRect(photographer.Control(kDate), &date);
    Click(photographer.Control(kDate), date.right - 8, date.bottom / 2);
    photographer.Shoot("calendar_open");
    Key(VK_ESCAPE);
    Click(photographer.Control(kPlainText));  // the first click only closes the calendar
    Click(photographer.Control(kOpenPopup));
    photographer.Shoot("popup");
    Click(photographer.Control(kOpenPopup));
    photographer.ShootBoxOf(kOpenAsk, "dialog");
    photographer.ShootBoxOf(kOpenBox, "box");
    photographer.ShootBoxOf(kOpenQuestion, "question", VK_RETURN);
    photographer.ShootBoxOf(kOpenSave, "save_file");
    frame.list().SetFocus();
    Key(VK_NEXT);
    Key(VK_DOWN);
    photographer.Shoot("list_scrolled");
    Click(frame.tabs(), 120, 12);
    photographer.Shoot("front");
    ShootFront(frame.front(), photographer);
    return photographer.good();
}

}  // namespace gallery
