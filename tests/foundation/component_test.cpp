#include "foundation/component.h"

#include <vector>

#include <gmock/gmock.h>

#include "foundation/list_view.h"
#include "platform/driver.h"

namespace {

constexpr char testClass[] = "ComponentTest";

class Recorder : public zelkova::Component {
public:
    Recorder() {
        className = testClass;
        platform::WindowClass windowClass;
        windowClass.name = testClass;
        registerClass(windowClass); // false from the second test on
    }
    platform::LResult componentWndProc(platform::WindowHandle window, unsigned message,
                                       platform::WParam wParam, platform::LParam lParam) override {
        seen.push_back(message);
        if (message == platform::WM_CREATE) return createAnswer;
        return message == platform::WM_USER ? 7
                                            : Component::componentWndProc(window, message, wParam, lParam);
    }
    std::vector<unsigned> seen;
    platform::LResult createAnswer = 0;
};

TEST(Component, ReceivesItsMessagesFromCreationOn) {
    Recorder recorder;
    platform::CreateParams params;
    params.style = platform::WS_VISIBLE; // what the first show sends still comes before setUserData
    ASSERT_TRUE(recorder.create(params));
    EXPECT_THAT(recorder.seen, testing::ElementsAre(platform::WM_CREATE));
    EXPECT_EQ(platform::sendMessage(recorder.getHwnd(), platform::WM_USER), 7);

    recorder.setUserData(nullptr);
    recorder.seen.clear();
    EXPECT_EQ(platform::sendMessage(recorder.getHwnd(), platform::WM_USER), 0)
        << "the default procedure's answer";
    EXPECT_TRUE(recorder.seen.empty());
    platform::destroyWindow(recorder.getHwnd());
}

TEST(Component, ARefusedCreationLeavesNoWindow) {
    Recorder recorder;
    recorder.createAnswer = -1;
    EXPECT_FALSE(recorder.create({}));
    EXPECT_FALSE(recorder.getHwnd());
}

TEST(Component, AWindowMayOutliveItsObject) {
    platform::WindowHandle window;
    {
        Recorder recorder;
        ASSERT_TRUE(recorder.create({}));
        window = recorder.getHwnd();
    }
    EXPECT_EQ(platform::sendMessage(window, platform::WM_USER), 0);
    platform::destroyWindow(window);
}

TEST(ListView, CountsWhatTheListAccepts) {
    Recorder recorder;
    ASSERT_TRUE(recorder.create({}));
    ASSERT_TRUE(platform::loadTemplate(recorder.getHwnd(), "IDD_KDL0101_DATA"));
    const platform::WindowHandle list = platform::getItem(recorder.getHwnd(), 11026);
    zelkova::ListView view;
    EXPECT_FALSE(view.insertItem(0, "no list yet"));
    EXPECT_EQ(view.getItemCount(), 0);

    view.attach(list);
    ASSERT_TRUE(view.insertColumn(0, {"番号", 40}));
    ASSERT_TRUE(view.insertColumn(1, {"題", 80}));
    EXPECT_TRUE(view.setItem(0, 0, "一"));
    EXPECT_TRUE(view.insertItem(0, "零"));
    EXPECT_FALSE(view.insertItem(5, "beyond"));
    EXPECT_EQ(view.getItemCount(), 2);
    EXPECT_EQ(view.getText(0, 0), "零");

    const std::string longText(1025, 'x');
    EXPECT_TRUE(view.setText(1, 1, longText));
    EXPECT_EQ(view.getText(1, 1), longText);
    EXPECT_TRUE(view.setNumber(0, 1, -30000));
    EXPECT_EQ(view.getNumber(0, 1), -30000);
    EXPECT_EQ(view.getNumber(9, 1), 0);
    EXPECT_EQ(zelkova::ListView().getText(0, 0), "");

    EXPECT_FALSE(view.deleteItem(2));
    EXPECT_TRUE(view.deleteItem(0));
    EXPECT_EQ(view.getItemCount(), 1);
    EXPECT_EQ(view.getText(0, 0), "一") << "rows below move up";
    EXPECT_TRUE(view.deleteAllItems());
    EXPECT_EQ(view.getItemCount(), 0);
    view.deleteAllColumns();
    EXPECT_EQ(view.getColumnCount(), 0);
    platform::destroyWindow(recorder.getHwnd());
}

} // namespace
