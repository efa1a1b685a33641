#include <gtest/gtest.h>

#include "tests/host/EventLog.h"

namespace {

using automation::Object;
using automation::Value;
using Names = std::vector<std::wstring>;

constexpr std::int32_t badIndex = -2147352567;
constexpr int button = 1;
constexpr int popup = 10;

Object menuOf(const Object& window) {
    return window.get(L"CommandBars", L"Menu Bar").toObject().get(L"Controls").toObject();
}

Object add(const Object& controls, int type, const wchar_t* caption) {
    const Object control = controls.call(L"Add", type).toObject();
    control.put(L"Caption", caption);
    return control;
}

Object controlsOf(const Object& control) {
    return control.get(L"Controls").toObject();
}

Names captions(const Object& controls) {
    Names result;
    for (int i = 1; i <= controls.get(L"Count").toInteger(); ++i) {
        result.push_back(controls.get(L"Item", i).toObject().get(L"Caption").toText());
        EXPECT_EQ(controls.get(L"Item", i).toObject().get(L"Index").toInteger(), i);
    }
    return result;
}

class HostCommandBarsTest : public testing::Test {
  protected:
    /// Counts how often each watched button is pressed.
    void watch(const Object& control, const std::wstring& name) {
        tokens_.push_back(automation::subscribe(
            control, outlook::events::commandBarButton,
            [this, name](std::int32_t, std::span<Value>) { pressed_.push_back(name); }));
    }

    host::Outlook outlook_{host::Profile{}};
    Object explorer_ = outlook_.explorers().front();
    Object menu_ = menuOf(explorer_);
    Names pressed_;
    std::vector<automation::Subscription> tokens_;
};

TEST_F(HostCommandBarsTest, ControlsAreFoundByCaptionOrPlace) {
    const Object tools = menu_.get(L"Item", 5).toObject();
    struct Case {
        Value key;
        std::int32_t error;
    };
    const Case cases[] = {{L"&Tools", 0},      {L"Tools", 0},    {L"tOOLS", 0},   {5, 0},
                          {L"Tool", badIndex}, {L"5", badIndex}, {L"", badIndex}, {0, badIndex},
                          {-1, badIndex},      {8, badIndex},    {Object(), 13}};
    for (const Case& test : cases) {
        const auto row = &test - cases;
        Object found;
        EXPECT_EQ(errorOf([&] { found = menu_.get(L"Item", test.key).toObject(); }), test.error) << row;
        EXPECT_EQ(found, test.error == 0 ? tools : Object()) << row;
    }
    const Object bars = explorer_.get(L"CommandBars").toObject();
    EXPECT_EQ(bars.get(L"Item", L"MENU BAR").toObject(), bars.get(L"ActiveMenuBar").toObject());
    EXPECT_EQ(errorOf([&] { bars.get(L"Item", L"Standard"); }), badIndex);
    EXPECT_EQ(errorOf([&] { bars.get(L"Item", 2); }), badIndex);
    const Object first = add(menu_, button, L"Twice");
    add(menu_, button, L"T&wice");
    EXPECT_EQ(menu_.get(L"Item", L"twice").toObject(), first);
}

TEST_F(HostCommandBarsTest, AddTakesEveryArgumentOrNone) {
    const Value none;
    struct Case {
        std::vector<Value> arguments;
        int type;
        int index;
    };
    const Case cases[] = {{{}, button, 8},
                          {{none, none, none, none, none}, button, 8},
                          {{button}, button, 8},
                          {{popup}, popup, 8},
                          {{popup, 1, L"", 1, true}, popup, 1},
                          {{none, none, none, 7, false}, button, 7},
                          {{button, none, none, none, true}, button, 8}};
    const auto call = [&](const std::vector<Value>& arguments) {
        return menu_.target()->invoke(menu_.target()->memberId(L"Add"), automation::Access::Call, arguments);
    };
    for (const Case& test : cases) {
        const auto row = &test - cases;
        const Object control = call(test.arguments).toObject();
        EXPECT_EQ(control.get(L"Type").toInteger(), test.type) << row;
        EXPECT_EQ(control.get(L"Index").toInteger(), test.index) << row;
        EXPECT_EQ(control.get(L"Caption").toText() + control.get(L"Tag").toText(), L"") << row;
        EXPECT_FALSE(control.get(L"BeginGroup").toBool()) << row;
        control.call(L"Delete");
    }
    const std::pair<std::vector<Value>, std::int32_t> refused[] = {
        {{7}, automation::errors::failed},
        {{L"popup"}, 13},
        {{button, none, none, 0}, badIndex},
        {{button, none, none, 9}, badIndex},
        {{button, none, none, L"Help"}, 13},
        {{button, none, none, none, L"yes"}, 13},
        {{button, none, none, none, true, 1}, -2147352562}};
    for (const auto& [arguments, error] : refused) {
        EXPECT_EQ(errorOf([&, list = &arguments] { call(*list); }), error) << arguments.size();
    }
    EXPECT_EQ(menu_.get(L"Count").toInteger(), 7) << "nothing is left of a refused one";
}

TEST_F(HostCommandBarsTest, ControlsKeepWhatIsWrittenAndTheirPlaceInTheOrder) {
    const Object tarnwell = add(menu_, popup, L"&Tarnwell");
    const Object inner = controlsOf(tarnwell);
    const Object last = add(inner, button, L"Last");
    const Object first = inner.call(L"Add", button, Value(), Value(), last.get(L"Index"), true).toObject();
    first.put(L"caption", L"First");
    first.put(L"TAG", L"Veltro.1");
    first.put(L"begingroup", true);
    EXPECT_EQ(captions(inner), (Names{L"First", L"Last"}));
    EXPECT_EQ(first.get(L"Tag").toText(), L"Veltro.1");
    EXPECT_TRUE(first.get(L"BeginGroup").toBool() && !last.get(L"BeginGroup").toBool());
    for (const wchar_t* readOnly : {L"Index", L"Type", L"Id"}) {
        EXPECT_EQ(errorOf([&] { first.put(readOnly, 1); }), 438);
    }
    EXPECT_EQ(errorOf([&] { first.get(L"Controls"); }), 438) << "a button has none";
    EXPECT_EQ(errorOf([&] { tarnwell.put(L"FaceId", 1); }), 438) << "a popup has no face";
    first.call(L"Delete");
    EXPECT_EQ(captions(inner), Names{L"Last"});
    EXPECT_EQ(captions(menu_).back(), L"&Tarnwell");
}

TEST_F(HostCommandBarsTest, ANewWindowHasNoneBeforeItsFirstActivate) {
    std::vector<std::int32_t> errors;
    const auto ask = [&](const Object& window) {
        errors.push_back(errorOf([&] { window.get(L"CommandBars"); }));
    };
    automation::Subscription activated;
    const auto opened = automation::subscribe(
        outlook_.application().get(L"Explorers").toObject(), outlook::events::explorers,
        [&](std::int32_t, std::span<Value> arguments) {
            const Object window = arguments[0].toObject();
            ask(window);
            activated = automation::subscribe(window, outlook::events::explorer,
                                              [&, window](std::int32_t, std::span<Value>) { ask(window); });
        });
    outlook_.openExplorer();
    EXPECT_EQ(errors, (std::vector<std::int32_t>{automation::errors::failed, 0}));
}

TEST_F(HostCommandBarsTest, ADeletedPopupTakesItsControlsWithIt) {
    Object tarnwell = add(menu_, popup, L"Tarnwell");
    Object veltro = add(controlsOf(tarnwell), popup, L"Veltro");
    const Object settings = add(controlsOf(veltro), button, L"Settings");
    watch(settings, L"settings");
    tarnwell.call(L"Delete", false);
    EXPECT_EQ(captions(menu_).back(), L"&Help");
    EXPECT_NE(errorOf([&] { tarnwell.call(L"Delete"); }), 0) << "twice";
    EXPECT_NE(errorOf([&] { tarnwell.get(L"Controls"); }), 0);
    tarnwell = veltro = Object();
    EXPECT_NE(errorOf([&] { settings.put(L"Caption", L"x"); }), 0);
    EXPECT_NE(errorOf([&] { settings.call(L"Execute"); }), 0);
    EXPECT_NE(errorOf([&] { outlook_.pressControl(explorer_, {L"Tarnwell", L"Veltro", L"Settings"}); }), 0);
    EXPECT_TRUE(pressed_.empty());
}

TEST_F(HostCommandBarsTest, OnlyThePressedButtonClicks) {
    const Object inner = controlsOf(add(menu_, popup, L"Tarnwell"));
    const Object settings = add(inner, button, L"Settings");
    const Object about = add(inner, button, L"About");
    watch(settings, L"settings");
    watch(about, L"about");
    watch(about, L"about too");
    outlook_.pressControl(explorer_, {L"tarnwell", L"&about"});
    EXPECT_EQ(pressed_, (Names{L"about", L"about too"}));
    settings.call(L"Execute");
    EXPECT_EQ(pressed_.back(), L"settings");
    tokens_.clear();
    about.call(L"Execute");
    EXPECT_EQ(pressed_.size(), 3U) << "nobody listens any more";
    EXPECT_NE(errorOf([&] { outlook_.pressControl(explorer_, {L"Tarnwell"}); }), 0) << "a popup";
    EXPECT_EQ(errorOf([&] { watch(menu_.get(L"Item", L"Tarnwell").toObject(), L"popup"); }), 459);
    EXPECT_EQ(errorOf([&] { automation::subscribe(about, outlook::events::item, {}); }), 459);
}

TEST_F(HostCommandBarsTest, AHandlerMayDeleteTheMenuThatItIsCalledFrom) {
    const Object tarnwell = add(menu_, popup, L"Tarnwell");
    std::size_t arguments = 0;
    tokens_.push_back(automation::subscribe(add(controlsOf(tarnwell), button, L"Remove"),
                                            outlook::events::commandBarButton,
                                            [&](std::int32_t event, std::span<Value> given) {
                                                EXPECT_EQ(event, 1);
                                                arguments = given.size();
                                                EXPECT_FALSE(given[1].variable().toBool());
                                                tarnwell.call(L"Delete");
                                            }));
    outlook_.pressControl(explorer_, {L"Tarnwell", L"Remove"});
    EXPECT_EQ(arguments, 2U);
    EXPECT_EQ(menu_.get(L"Count").toInteger(), 7);
    EXPECT_TRUE(outlook_.errors().empty());
}

TEST_F(HostCommandBarsTest, ANewWindowCopiesTheTopmostOnesMenuAsItStands) {
    const Object inner = controlsOf(add(menu_, popup, L"&Tarnwell"));
    const Object settings = add(inner, button, L"Settings");
    settings.put(L"Tag", L"Veltro.1");
    settings.put(L"BeginGroup", true);
    const Object second = outlook_.openExplorer();
    const Object copy = controlsOf(menuOf(second).get(L"Item", L"Tarnwell").toObject());
    const Object copied = copy.get(L"Item", 1).toObject();
    EXPECT_FALSE(copied == settings);
    EXPECT_EQ(copied.get(L"Tag").toText(), L"Veltro.1");
    EXPECT_TRUE(copied.get(L"BeginGroup").toBool());
    watch(copied, L"copy");
    copied.put(L"Caption", L"Options");
    add(menuOf(second), button, L"Second only");
    EXPECT_EQ(captions(inner), Names{L"Settings"});
    EXPECT_EQ(menu_.get(L"Count").toInteger(), 8);
    settings.call(L"Execute");
    EXPECT_TRUE(pressed_.empty()) << "pressed in the other window";
    outlook_.pressControl(second, {L"Tarnwell", L"Options"});
    EXPECT_EQ(pressed_, Names{L"copy"});
    const Object third = outlook_.openExplorer();
    EXPECT_EQ(captions(menuOf(third)).back(), L"Second only");
    const Object inspector = outlook_.openNewMail(mailTo(L"bob@example.com"));
    EXPECT_EQ(captions(menuOf(inspector)).back(), L"&Help") << "an item's window has its own menu";
}

TEST_F(HostCommandBarsTest, MenusFailOnceTheirWindowIsClosed) {
    const Object settings = add(controlsOf(add(menu_, popup, L"Tarnwell")), button, L"Settings");
    watch(settings, L"settings");
    outlook_.closeExplorer(explorer_);
    EXPECT_NE(errorOf([&] { explorer_.get(L"CommandBars"); }), 0);
    EXPECT_NE(errorOf([&] { outlook_.pressControl(explorer_, {L"Tarnwell", L"Settings"}); }), 0);
    explorer_ = menu_ = Object();
    EXPECT_NE(errorOf([&] { settings.get(L"Caption"); }), 0);
    EXPECT_TRUE(pressed_.empty());
    tokens_.clear();
    const Object fresh = outlook_.openExplorer();
    EXPECT_EQ(captions(menuOf(fresh)).back(), L"&Help") << "there is no menu left to copy";
    const Object inspector = outlook_.openNewMail(mailTo(L"bob@example.com"));
    outlook_.closeInspector(inspector);
    EXPECT_NE(errorOf([&] { inspector.get(L"CommandBars"); }), 0);
}

}  // namespace
