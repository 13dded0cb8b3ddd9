// What programs that are known by name are told of the desktop's size.
#include "programs/modeler_protocol.h"
#include "support/behaviour_fixture.h"

namespace halyard::test {

namespace {

class PatchesTest : public BehaviourTest {
protected:
    void SetUp() override {
        BehaviourTest::SetUp();
        // So that the union of the work areas differs from the desktop, and from the first display's.
        ASSERT_TRUE(Arrange(UnderTaskbars())) << Describe(PresentDisplays());
    }

    // A program with the layer, under its file's name.
    Sample OpenLayered(const std::string& name) {
        const std::string own = ScratchFolder();
        CopyTo(own, "sample_layer.dll", "ExtensionLayer.dll");
        const Sample frame =
            OpenFrameFrom(CopyTo(own, "sample_frame.exe", name), "Layered", "--count 2 --at 100,100,300,200");
        EXPECT_EQ(Ask(frame.window, frame::LoadLayer), 1) << own;
        return frame;
    }
    static std::string Sizes(const Sample& frame) { return ReportOf(frame, frame::ReportSizes); }

    Sample OpenModeler(const std::string& name, const std::string& width = {}) {
        return OpenProgram(CopyTo(ScratchFolder(), "sample_modeler.exe", name), width, modeler::Title);
    }
    static std::string Believed(const Sample& sample) {
        return std::to_string(Ask(sample.window, modeler::AskWidth)) + "x" +
               std::to_string(Ask(sample.window, modeler::AskHeight));
    }
};

constexpr char Plain[] = "desktop 0,0,1024,768 work 0,0,1024,728 window 100,100,400,300 lines 3\n";

TEST_F(PatchesTest, TheLayerAloneIsToldOfAllDisplays) {
    const Sample frame = OpenLayered("maya.exe");
    const std::string untouched = std::string("layer ") + Plain + "program " + Plain;
    ASSERT_EQ(Sizes(frame), untouched);
    StartLoader();
    ASSERT_TRUE(WindowsBecome(0, 2));
    EXPECT_EQ(Sizes(frame), std::string("layer desktop 0,0,2048,728 work 0,0,2048,728 window 100,100,400,300 lines 3\n"
                                        "program ") +
                                Plain);

    ASSERT_TRUE(Arrange({UnderTaskbars()[0]})) << Describe(PresentDisplays());
    AnnounceDisplays();
    EXPECT_TRUE(Eventually([&] { return Sizes(frame).rfind("layer desktop 0,0,1024,728", 0) == 0; })) << Sizes(frame);

    ASSERT_TRUE(Arrange(UnderTaskbars())) << Describe(PresentDisplays());
    Loader("--disable");
    ASSERT_EQ(Ask(frame.window, frame::DropLibrary), 1);
    EXPECT_EQ(Sizes(frame), untouched);
}

TEST_F(PatchesTest, TheLayerOfAnotherProgramIsNot) {
    const Sample frame = OpenLayered("other.exe");
    StartLoader();
    ASSERT_TRUE(WindowsBecome(0, 2));
    EXPECT_EQ(Sizes(frame), std::string("layer ") + Plain + "program " + Plain);
}

TEST_F(PatchesTest, TheModellersNumbersBecomeTheWholeDesktops) {
    struct Case {
        const char* program;
        const char* width;  // that it believes in at first; empty: the first display's
        const char* believed;
    };
    constexpr Case Cases[] = {{"modeler.exe", "", "2048x768"},
                              {"lightwav.exe", "", "2048x768"},
                              {"modeler.exe", "777", "777x768"},
                              {"modeler.exe", "none", "1024x768"},
                              {"other.exe", "", "1024x768"}};
    for (const auto& [program, width, believed] : Cases) {
        const Sample before = OpenModeler(program, width);
        StartLoader();
        ASSERT_TRUE(WindowsBecome(0, 1));
        EXPECT_EQ(Believed(before), believed) << program << " " << width;
        QuitLoader();
        Close(before);
    }
}

}  // namespace

}  // namespace halyard::test
