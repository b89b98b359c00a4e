// kdl-page as it is called: a copy of it in a tree of the test's own, with an opener that notes what it gets.

#include <filesystem>

#include <gmock/gmock.h>

#include "data/accesser_resource.h"
#include "platform/files.h"
#include "platform/text.h"
#include "support/fake_program.h"
#include "support/run_program.h"
#include "support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;

class PageProgram : public testing::Test {
protected:
    void SetUp() override {
        for (const char* name : {"bin", "desktop"})
            fs::create_directory(tree.path() / name);
        fs::copy(KDL_SOURCE_FOLDER "/dist/cnf", tree.path() / "cnf");
        fs::copy_file(KDL_PAGE, program);
        answer("exit 0");
    }
    // What the desktop's opener does.
    void answer(const std::string& lines) {
        test_support::writeProgram(tree.path() / "desktop/xdg-open",
                                   "echo \"$1\" >> " + tree.file("opened") + "\n" + lines + "\n");
    }
    std::string makeCatalogue() const {
        const std::string file = tree.file("cnf/ResourceData.xml");
        AccesserResource catalogue;
        catalogue.setStylesheet("ResourceData.xsl");
        EXPECT_EQ(catalogue.open(file), 1);
        DataResource song;
        song.setTitle("曲名");
        catalogue.add(song);
        EXPECT_EQ(catalogue.commit(), 1);
        return file;
    }
    std::string make(const std::string& name, const std::string& text) const {
        EXPECT_TRUE(platform::replaceFile(tree.file(name), text));
        return tree.file(name);
    }
    // Nobody sees a window: nobody can be asked to close a box.
    test_support::EndedProgram show(const std::string& files) {
        fs::remove(tree.path() / "opened");
        const test_support::SearchPath path(tree.path() / "desktop");
        return test_support::runProgram("env -u DISPLAY -u WAYLAND_DISPLAY " + program + " " + files);
    }
    std::string opened() const { return platform::readFile(tree.file("opened")).value_or(""); }
    std::string pageOf(const std::string& name) const { return tree.file("tmp/" + name + ".html"); }
    std::string page(const std::string& name) const {
        return platform::utf8ToSjis(platform::readFile(pageOf(name)).value_or(""));
    }

    const test_support::TemporaryFolder tree;
    const std::string program = tree.file("bin/kdl-page");
};

TEST_F(PageProgram, OpensThePageOfEachFile) {
    const std::string catalogue = makeCatalogue();
    const std::string plain =
        make("a b.xml", "<?xml version=\"1.0\" encoding=\"shift_jis\"?><root>表 &amp; 本文</root>");
    const auto ended = show("'" + plain + "' " + catalogue);
    EXPECT_EQ(ended.code, 0);
    EXPECT_THAT(ended.said, IsEmpty());
    EXPECT_THAT(opened(),
                AllOf(HasSubstr(pageOf("a b.xml") + "\n"), HasSubstr(pageOf("ResourceData.xml") + "\n")));
    EXPECT_THAT(page("ResourceData.xml"), HasSubstr("曲名"));
    EXPECT_THAT(page("a b.xml"), HasSubstr("&lt;root&gt;表 &amp;amp; 本文"))
        << "without stylesheet: its text";
}

TEST_F(PageProgram, ShowsTheTextAndTheProblemOfAFileThatMakesNoPage) {
    const struct {
        const char *file, *problem, *shown;
    } files[] = {{"<?xml-stylesheet href='gone.xsl'?><root/>", "gone.xsl", "&lt;root/&gt;"},
                 {"<root>cut o", "XML", "&lt;root&gt;cut o"}};
    for (const auto& [file, problem, shown] : files) {
        const auto ended = show(make("file.xml", file));
        EXPECT_NE(ended.code, 0);
        EXPECT_THAT(ended.said, HasSubstr(problem));
        EXPECT_EQ(opened(), pageOf("file.xml") + "\n");
        EXPECT_THAT(page("file.xml"), AllOf(HasSubstr(problem), HasSubstr(shown)));
    }
}

TEST_F(PageProgram, SaysWhyThereIsNoPage) {
    EXPECT_NE(show("").code, 0);
    const auto ended = show(tree.file("gone.xml") + " " + makeCatalogue());
    EXPECT_NE(ended.code, 0);
    EXPECT_THAT(ended.said, HasSubstr("gone.xml: "));
    EXPECT_EQ(opened(), pageOf("ResourceData.xml") + "\n") << "the other one is shown";

    answer("exit 3");
    EXPECT_NE(show(makeCatalogue()).code, 0);
    fs::remove(tree.path() / "desktop/xdg-open");
    EXPECT_NE(show(makeCatalogue()).code, 0);

    answer("exit 0");
    fs::remove_all(tree.path() / "tmp");
    make("tmp", "no folder");
    EXPECT_NE(show(makeCatalogue()).code, 0);
    EXPECT_THAT(opened(), IsEmpty());
}

// Also where the desktop brings back whatever it is given.
TEST_F(PageProgram, IsNotBroughtInACircle) {
    answer("exec " + program + " \"$1\"");
    for (const std::string& file :
         {makeCatalogue(), make("plain.xml", "<root/>"), make("broken.xml", "<root")}) {
        EXPECT_NE(show(file).code, 0);
        EXPECT_EQ(opened(), pageOf(fs::path(file).filename()) + "\n");
    }
}

} // namespace
