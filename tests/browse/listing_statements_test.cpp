// Every text below is typed by hand, blanks included; `P` stands for the folders above the node.
#include "browse/listing_statements.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "browse/tree_loader.h"
#include "core/text.h"

namespace browse {
namespace {

struct Texts {
    int level;
    std::string folders;
    std::string files;
};

// The chain of a node listed at `level`: the ancestors below the unit, outermost first.
std::vector<std::string> chainOf(int level) {
    std::vector<std::string> chain;
    for (int depth = 2; depth < level; ++depth) chain.push_back("f" + std::to_string(depth));
    return chain;
}

std::string expanded(std::string text, int level) {
    std::string path;
    for (const std::string& folder : chainOf(level)) path += folder + "\\";
    return core::replaceAll(text, "P", path);
}

const std::vector<Texts> clicked = {
    {2,
     R"(select * from datos where disco =('U :')  and ruta like('*\n*') and tipo <>('archivo') and nivel =('2') order by carpeta )",
     R"(select * from datos where disco like('U :')  and ruta like('*\n*')  and tipo =('archivo') and nivel =('2')and carpeta =('n') order by carpeta )"},
    {3,
     R"(select * from datos where disco like('U :')  and ruta like ('*Pn*')  and tipo <>('archivo') and nivel =('3')   order by carpeta )",
     R"(select * from datos where  disco like('U :')  and ruta like ('*Pn') and tipo =('archivo') and nivel =('3') and carpeta =('n') order by carpeta )"},
    {4,
     R"(select * from datos where  disco like('U :')  and ruta like ('*Pn*')  and tipo <>('archivo') and nivel =('4')   order by carpeta )",
     R"(select * from datos where  disco like('U :')  and ruta like ('*Pn') and tipo =('archivo') and nivel =('4') and carpeta =('n') order by carpeta )"},
    {5,
     R"(select * from datos where  disco like('U :')  and ruta like ('*Pn*')  and tipo <>('archivo') and nivel =('5')   order by carpeta )",
     R"(select * from datos where  disco like('U :')  and ruta like ('*Pn') and tipo =('archivo') and nivel =('5') and carpeta =('n') order by carpeta )"},
    {6,
     R"(select * from datos where disco like('U :')  and ruta like ('*Pn*')  and tipo <>('archivo') and nivel =('6')   order by carpeta )",
     R"(select * from datos where disco like('U :')  and ruta like ('*Pn') and tipo =('archivo') and nivel =('6')and carpeta =('n')  order by carpeta )"},
    {7,
     R"(select * from datos where disco like('U :')  and ruta like ('*Pn*')  and tipo <>('archivo') and nivel =('7')   order by carpeta )",
     R"(select * from datos where disco like('U :')  and ruta like ('*Pn') and tipo =('archivo') and nivel =('7') and carpeta =('n') order by carpeta )"},
    {10,
     R"(select * from datos where disco like('U :')  and ruta like ('*Pn*')  and tipo <>('archivo') and nivel =('10')   order by carpeta )",
     R"(select * from datos where disco like('U :')  and ruta like ('*Pn') and tipo =('archivo') and nivel =('10')and carpeta =('n')order by carpeta )"},
    {11,
     R"(select * from datos where disco like('U :')  and ruta like ('*Pn*')  and tipo <>('archivo') and nivel =('11')   order by carpeta )",
     R"(select * from datos where disco like('U :')  and ruta like ('*Pn') and tipo =('archivo') and nivel =('11')and carpeta =('n')order by carpeta )"},
};

const std::vector<Texts> raised = {
    {2,
     R"(select * from datos where disco like('U :')  and ruta like('*\n*') and tipo <>('archivo') and nivel =('2')  order by carpeta )",
     R"(select * from datos where disco like('U :')  and ruta like('*\n*')  and tipo =('archivo') and nivel =('2') order by carpeta )"},
    {3,
     R"(select * from datos where disco like('U :')  and ruta like ('*Pn*')  and tipo <>('archivo') and nivel =('3')   order by carpeta )",
     R"(select * from datos where  disco like('U :')  and ruta like ('*Pn') and tipo =('archivo') and nivel =('3')  order by carpeta )"},
    {5,
     R"(select * from datos where  disco like('U :')  and ruta like ('*Pn*')  and tipo <>('archivo') and nivel =('5')   order by carpeta )",
     R"(select * from datos where  disco like('U :')  and ruta like ('*Pn') and tipo =('archivo') and nivel =('5')  order by carpeta )"},
    {11,
     R"(select * from datos where disco like('U :')  and ruta like ('*Pn*')  and tipo <>('archivo') and nivel =('11')   order by carpeta )",
     R"(select * from datos where disco like('U :')  and ruta like ('*Pn') and tipo =('archivo') and nivel =('11')  order by carpeta )"},
};

TEST(ListingStatements, ClickedFolders) {
    for (const Texts& texts : clicked) {
        const Listing listing = clickedFolderListing(texts.level, "U :", chainOf(texts.level), "n");
        EXPECT_EQ(listing.folders, expanded(texts.folders, texts.level));
        EXPECT_EQ(listing.files, expanded(texts.files, texts.level));
    }
}

TEST(ListingStatements, RaisedFolders) {
    for (const Texts& texts : raised) {
        const Listing listing = raisedFolderListing(texts.level, "U :", chainOf(texts.level), "n");
        EXPECT_EQ(listing.folders, expanded(texts.folders, texts.level));
        EXPECT_EQ(listing.files, expanded(texts.files, texts.level));
    }
}

TEST(ListingStatements, Units) {
    EXPECT_EQ(
        unitListing("U :").folders,
        "select * from datos where disco=('U :') and tipo <>('archivo') and nivel =('1')  order by carpeta ");
    EXPECT_EQ(
        unitListing("U :", true).folders,
        "select * from datos where disco=('U :') and tipo <>('Archivo') and nivel =('1')  order by carpeta ");
    EXPECT_EQ(
        unitListing("U :").files,
        "select * from datos where disco =('U :')  and tipo =('archivo') and nivel =('1') order by carpeta ");
}

TEST(ListingStatements, SteppedFolders) {
    const Listing second = steppedFolderListing(2, "U :", R"(C:\a)");
    EXPECT_EQ(
        second.folders,
        R"(select * from datos where disco like('U :') and ruta like('*C:\a*') and tipo <>('archivo') and nivel =('2')  order by carpeta )");
    EXPECT_EQ(
        second.files,
        R"(select * from datos where disco like('U :') and ruta like('*C:\a*')  and tipo =('archivo') and nivel =('2') order by carpeta )");
    const Listing fourth = steppedFolderListing(4, "U :", R"(C:\a)");
    EXPECT_EQ(
        fourth.folders,
        R"(select * from datos where disco like('U :') and ruta like ('*C:\a*')  and tipo <>('archivo') and nivel =('4')   order by carpeta )");
    EXPECT_EQ(
        fourth.files,
        R"(select * from datos where disco like('U :') and ruta like ('*C:\a') and tipo =('archivo') and nivel =('4')  order by carpeta )");
}

TEST(ListingStatements, ResultsStepByTheFoldersNameFromLevelFourOn) {
    EXPECT_EQ(steppedResultListing(3, "U :", R"(C:\a)", "a").files,
              steppedFolderListing(3, "U :", R"(C:\a)").files);
    EXPECT_EQ(
        steppedResultListing(4, "U :", R"(C:\a)", "a").files,
        R"(select * from datos where disco like('U :') and ruta like ('*\a') and tipo =('archivo') and nivel =('4')  order by carpeta )");
    EXPECT_EQ(
        steppedResultLookup("a", "U :", R"(C:\a)"),
        R"(select * from datos where carpeta like('a') and disco like('U :') and ruta like('C:\a') and tipo <>('archivo') order by carpeta )");
    EXPECT_EQ(
        steppedFolderLookup("a", "U :", R"(C:\a)"),
        R"(select * from datos where carpeta =('a') and disco =('U :') and ruta like('*C:\a') and tipo <>('archivo') order by carpeta )");
}

TEST(ListingStatements, FolderTreeLevels) {
    const std::vector<std::string> folders = {"a", "b"};
    EXPECT_EQ(foldersOfLevel("U :", 1, {}),
              "select carpeta from datos where disco=('U :') and nivel=('1') and  tipo <>('archivo')  order "
              "by carpeta ");
    EXPECT_EQ(foldersOfLevel("U :", 1, {}, FirstLevel::FoldersOnly),
              "select * from datos where disco=('U :') and nivel=('1') and  tipo =('carpeta de archivos')  "
              "order by carpeta ");
    EXPECT_EQ(
        foldersOfLevel("U :", 2, std::span(folders).first(1)),
        R"(select carpeta from datos where  disco=('U :') and ruta like ('*\a\*') and  nivel=('2') and tipo <>('archivo') order by carpeta )");
    EXPECT_EQ(
        foldersOfLevel("U :", 3, folders),
        R"(select carpeta from datos where  disco=('U :') and  ruta like ('*\a\b\*')  and  nivel=('3') and tipo <>('archivo') order by carpeta )");
}

}  // namespace
}  // namespace browse
