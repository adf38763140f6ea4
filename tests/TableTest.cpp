// Tests tables as spreadsheets have them: reading and writing, and what an import changes.
#include <gtest/gtest.h>

#include "Plant.h"
#include "table/Plan.h"

namespace trevandix::testing {

namespace {

const std::string doubtful{kDoubtful};

/// What is to change, one line per change: "3 U.A.x: Address 1 > 2" or "3 U.A.x refused: why".
Texts told(const ChangeSet& set) {
    Texts lines;
    for (const IntendedChange& change : set.changes()) {
        std::string line = std::to_string(change.line) + ' ' + change.object;
        if (change.refused()) {
            lines.push_back(line + " refused: " + change.refusal);
            continue;
        }
        line += change.adds ? " is new" : "";
        for (const FieldChange& field : change.fields)
            line += (": " + std::string(field.header) + ' ') + (change.adds ? "" : field.before + " > ") +
                    field.after;
        lines.push_back(line + (change.remark.empty() ? "" : ", " + change.remark));
    }
    return lines;
}

/// Each line: the table, with "|" for the line ends; what it is to change, joined by " / ". Applies it, and
/// imports it once more, which must change nothing. `left` is what the table of items then has besides.
void import(Configuration& configuration, const Fields& lines) {
    for (const auto& [text, wanted] : lines) {
        std::string bytes;
        for (const std::string& line : split(text)) bytes += line + "\n";
        const Table table = readTable(bytes);
        const ChangeSet set(configuration, table);
        std::string all;
        for (const std::string& line : told(set)) all += (all.empty() ? "" : " / ") + line;
        EXPECT_EQ(all, wanted) << text;
        const Texts before = fileContents(configuration);
        set.apply(configuration);
        EXPECT_EQ(disagreements(configuration), Texts()) << text;
        const ChangeSet again(configuration, table);
        EXPECT_EQ(set.refused() == 0 ? again.changes().size() : again.accepted(), 0U) << text;
        if (set.accepted() == 0) continue;
        const Texts after = fileContents(configuration);
        configuration.undo();
        EXPECT_EQ(fileContents(configuration), before) << text;
        configuration.redo();
        EXPECT_EQ(fileContents(configuration), after) << text;
    }
}

}  // namespace

TEST(Table, BytesBecomeCells) {
    // The file, and its cells: line number, then cells in angle brackets.
    const std::string utf16 = std::string(
        "\xFF\xFE"
        "a\0,\0\xA3\x03=\xD8\x00\xDE"
        "\n\0b\0",
        16);
    const std::string highFirst = std::string("\xFE\xFF\0a\0;\0b\xD8=\0", 11);
    const Fields rows{{"a,b\r\nc,d\r\n", "1<a><b>2<c><d>"},
                      {"a;b\rc;\"d\"\r", "1<a><b>2<c><d>"},
                      {"\n\na\tb,c\t\n\n1\t2", "3<a><b,c><>5<1><2>"},
                      {"\"a;;;\",b\n\"x\"\"y\r\nz\",2\n3", "1<a;;;><b>2<x\"y\r\nz><2>4<3>"},
                      {"\xEF\xBB\xBF\"a\"\n\"\"", "1<a>2<>"},
                      {"\xCE\xA3;\xE2\x82\xAC", "1<\xCE\xA3><\xE2\x82\xAC>"},
                      {"\xE4;\x80\x81\xFF", "1<\xC3\xA4><\xE2\x82\xAC\xC2\x81\xC3\xBF>"},
                      {utf16, "1<a><\xCE\xA3\xF0\x9F\x98\x80>2<b>"},
                      {highFirst, "1<a><b\xEF\xBF\xBD\xEF\xBF\xBD>"},
                      {"'=1,''=1,'x,'-5,-5,',it's", "1<=1><'=1><'x><-5><-5><'><it's>"},
                      {"a,5\" pipe\n\"b", "line 2: a quote is not closed"},
                      {"a\n\n\"b\n\"c", "line 4: text follows a closed quote"},
                      {"", ""}};
    for (const auto& [bytes, wanted] : rows) {
        std::string seen;
        try {
            for (const CsvRow& row : readCsv(bytes)) {
                seen += std::to_string(row.line);
                for (const std::string& cell : row.cells) seen += '<' + cell + '>';
            }
        } catch (const RuntimeError& error) {
            seen = error.what();
            seen.erase(0, seen.find("line"));
        }
        EXPECT_EQ(seen, wanted) << bytes;
    }
    EXPECT_EQ(csvFile(std::vector<Cells>{{"=1", "-5", "-x", "'x", "'+", "a,b", "\t"}}, Separator::Semicolon),
              "\xEF\xBB\xBF'=1;-5;'-x;'x;''+;\"a,b\";\"'\t\"\r\n");
}

TEST(Table, ChangesAndRefusalsOfItems) {
    PlantedWorkplace place({"ModBus.coil", "ModBus.holding register", "ModBus.input register", "U", "U.A/",
                            "U.A.x", "U.A.y", "U.A.z", "U.B/", "V"});
    Configuration& c = place.configuration;
    place.item("U.A.z").nAddress(70000);
    place.item("U.A.z").sAccessRight("Read");
    place.click("U.B");
    import(c,
           {
               {"name;UNIT; b ranch;Comment|x;U;A;pump|y;U;a;", "2 U.A.x: Comment  > pump"},
               {"Unit,Branch,Name,Address|U,A,x,7.6|U,A,y,65536|U,A,z,12a|U,A,z,1",
                "2 U.A.x: Address 0 > 8 / 3 U.A.y refused: Memory address field is not valid. It must be "
                "between 0 and "
                "65535. / 4 U.A.z refused: Address \"12a\" has other characters than digits, \"-\", \".\" "
                "and blanks / 5 "
                "U.A.z refused: Line 4 is about the same object"},
               // What does not change is never refused; what hangs on a change is.
               {"Unit,Branch,Name,Address,Comment,Access Rights|U,A,z,70000,c,Read", "2 U.A.z: Comment  > c"},
               {"Unit,Branch,Name,ModBus Type|U,A,z,coil",
                "2 U.A.z refused: Data Type \"signed 16 bit\" is not in the dialog's list"},
               {"Unit,Branch,Name,Data Type,Bit|U,A,z,boolean,|U,A,x,boolean,3|U,A,y,string,",
                "2 U.A.z refused: Bit number field is empty. / 3 U.A.x: Bit  > 3: Data Type signed 16 bit > "
                "boolean / 4 "
                "U.A.y: Data Type signed 16 bit > string: Elements  > 0"},
               {"Unit,Branch,Name,Elements|U,A,y,40000|U,A,x,9", "2 U.A.y refused: Overflow"},
               // Names
               {"Unit,Branch,Name,New Name,Address|U,A,x,y,8|U,A,y,x,0",
                "2 U.A.x: Name x > y / 3 U.A.y: Name y > x"},
               {"Unit,Branch,Name,New Name|U,A,x,y", "2 U.A.x refused: The name is taken"},
               {"Unit,Branch,Name,New Name|U,A,x,y|U,A,y,x",
                "2 U.A.x refused: " + doubtful + " / 3 U.A.y refused: " + doubtful},
               {"Unit,Branch,Name,New Name|U,A,x,y|U,A,y,z|U,A,z,a b",
                "2 U.A.x refused: The name is taken / 3 U.A.y refused: The name is taken / 4 U.A.z refused: "
                "Name \"a b\" has "
                "other characters than letters A to Z, digits, \"-\" and \"_\""},
               {"Unit,Branch,Name,New Name|U,A,x,w|U,A,y,w|U,A,q,r",
                "2 U.A.x: Name x > w / 3 U.A.y refused: The name is taken by line 2 / 4 U.A.q refused: There "
                "is no \"q\" to "
                "rename"},
               {"Unit,Branch,Name,New Name|U,A,w,v|U,A,y,w|U,A,z,y",
                "2 U.A.w: Name w > v / 3 U.A.y: Name y > w / 4 U.A.z: Name z > y"},
               {"Unit,Branch,Name,New Name|U,A,y,z|U,A,w,y|U,A,v,w",
                "2 U.A.y: Name y > z / 3 U.A.w: Name w > y / 4 U.A.v: Name v > w"},
               // Additions
               {"Branch,Name,ModBus Type,Data Type,Address,Access "
                "Rights|C.D,n,coil,boolean,1,READ|c,m,coil,boolean,2,WRITE",
                "2 U.C.D.n is new: Name n: ModBus Type coil: Address 1: Bit 0: Data Type boolean: Access "
                "Rights READ, new "
                "branch C.D / 3 U.C.m is new: Name m: ModBus Type coil: Address 2: Bit 0: Data Type boolean: "
                "Access Rights "
                "WRITE"},
               {"Unit,Name,ModBus Type,Data Type,Address,Access Rights|U,p,input "
                "register,string,1,WRITE|U,,a,b,c,d|U,r,,,,",
                "2 U.B.p refused: Access Rights \"WRITE\" is not in the dialog's list / 3 U.B. refused: "
                "Address \"c\" has "
                "other characters than digits, \"-\", \".\" and blanks / 4 U.B.r refused: ModBus Type field "
                "is empty."},
               {"Unit,Branch,Name,Comment|U,A,w,\"a\tb\"|W,A,x,|U,A..B,x,|U,2nd,x,|V,tag,x,",
                "2 U.A.w refused: Comment has a line break or TAB, or is no valid text / 3 x refused: There "
                "is no unit \"W\" / "
                "4 x refused: Branch \"A..B\" has an empty name or a \"\\\" that stands for nothing / 5 x "
                "refused: New branch name begins with \"2\": \"2nd\" / 6 x refused: "
                "New branch name is the "
                "name of items: \"tag\""},
               {"Unit,Branch,Name,ModBus Type,Data Type,Address,Access "
                "Rights|U,A.w,k,coil,boolean,1,READ|U,A,B,coil,boolean,"
                "1,READ|U,A.B,k,coil,boolean,1,READ",
                "2 U.A.w.k refused: The name of its new branch is taken / 3 U.A.B is new: Name B: ModBus "
                "Type coil: Address 1: "
                "Bit 0: Data Type boolean: Access Rights READ / 4 U.A.B.k refused: The name of its new "
                "branch is taken"},
               {"Unit,Branch,Name|U,A.b,k",
                "2 k refused: An item has the name of the new branch \"b\", as files hold branch names in "
                "capitals"},
           });
    EXPECT_EQ(c.undoName(), "Import 1 change");
    for (const char* text : {"", "Unit,Branch\nU,A", "Name,Timeout,name"})
        EXPECT_THROW(readTable(text), RuntimeError);
    EXPECT_EQ(readTable("Unit,Name,Remark,,Adress\n").unknownColumns, (Texts{"Remark", "Adress"}));
}

TEST(Table, ChangesAndRefusalsOfUnitsAndDataTypes) {
    Workplace place;
    place.newConfiguration(kRtu);
    Configuration& c = place.configuration;
    const auto added = [](const std::string& line, const std::string& name, const std::string& id) {
        return line + ' ' + name + " is new: Name " + name + ": Identifier " + id +
               ": Timeout 2000: Port COM1: Baud Rate 9600: Parity NO: Data Bits 8: Stop Bits 1: Flow Control "
               "NONE: Silent "
               "Interval 10";
    };
    import(
        c,
        {
            {"Name,Identifier|P,1|Q,2|R,3|S,3|ModBus,5|,6|T,255",
             added("2", "P", "1") + " / " + added("3", "Q", "2") + " / " + added("4", "R", "3") +
                 " / 5 S refused: UI already existing. Please use a different one / 6 ModBus refused: The "
                 "name is taken / 7 "
                 " refused: Name field is empty. / 8 T refused: UI identifier must be between 0 and 254."},
            {"Name,Identifier|P,2|Q,1", "2 P: Identifier 1 > 2 / 3 Q: Identifier 2 > 1"},
            {"Name,Identifier|P,3|R,4|Q,3",
             "2 P: Identifier 2 > 3 / 3 R: Identifier 3 > 4 / 4 Q refused: UI already "
             "existing. Please use a different one"},
            {"Name,Baud Rate|P,19200|Q,19200",
             "2 P refused: Plc Q has the same port but different Baud Rate / 3 Q refused: "
             "Plc R has the same port but different Baud Rate"},
            {"Name,Baud Rate|P,19200|Q,19200|R,19200",
             "2 P: Baud Rate 9600 > 19200 / 3 Q: Baud Rate 9600 > 19200 / 4 R: Baud Rate 9600 > 19200"},
            {"Name,Baud Rate|P,1234|P,2400",
             "2 P refused: Baud Rate \"1234\" is not in the dialog's list / 3 P refused: "
             "Line 2 is about the same object"},
            {"Name,Port|P,COM|Q,com2|R,COM3",
             "2 P refused: Invalid Port name. Missing port number. / 3 Q refused: Invalid "
             "Port name. It must begin with \"COM\" / 4 R: Port COM1 > COM3"},
            {"Name,New Name,Timeout|P,Q,1|Q,R,2|R,P,3",
             "2 P: Name P > Q: Timeout 2000 > 1 / 3 Q: Name Q > R: Timeout 2000 > 2 / 4 R: Name R > P: "
             "Timeout 2000 > 3"},
            {"Name,New Name|P,Q|Q,|X,Y",
             "2 P refused: The name is taken / 4 X refused: There is no \"X\" to rename"},
            {"Name,Timeout|P,3e9|Q,x|R,\"1\n\"",
             "2 P refused: Overflow / 3 Q refused: Timeout value is not valid. / 4 R "
             "refused: Timeout has a line break or TAB, or is no valid text"},
            {"Name,Read Code,Write Code|coil,1,|input status,,9|x,1,1|P,1,1",
             "2 coil refused: Check Write Function code / 3 input status refused: Check Read Function code / "
             "4 x refused: "
             "Name \"x\" is not in the dialog's list / 5 P refused: Name \"P\" is not in the dialog's list"},
            {"Name,Read Code|coil,300|input status,2",
             "2 coil refused: Overflow / 3 input status is new: Name input status: "
             "Read Code 2"},
            {"Name,Read Code,Single Write Code|coil,2.5,|input status,4,6",
             "2 coil is new: Name coil: Read Code 2: Write Code 15 / 3 input status: Read Code 2 > 4"},
        });
    // A "." in a unit's name: its key may be that of an object in another unit.
    PlantedWorkplace dotted({"U", "U.A/", "V"});
    plantUnit(dotted.configuration, "W.A");
    import(dotted.configuration,
           {{"Name,New Name|U,V|V,U", "2 U refused: " + doubtful + " / 3 V refused: " + doubtful},
            {"Name,New Name|U,W", "2 U refused: The name is taken"},
            {"Name,New Name|U,W|V,U|W,V",
             "2 U refused: The name is taken / 3 V refused: The name is taken / 4 W refused: Line 3 is "
             "about the same object"},
            {"Name,New Name|U,W|W.A,Z", "2 U: Name U > W / 3 W.A: Name W.A > Z"},
            {"Name,New Name|W,U", "2 W: Name W > U"},
            { "Name,New Name|U,W|V,W.A",
              "2 U: Name U > W / 3 V refused: The name is taken" }});
}

TEST(Table, FilesOfSpreadsheets) {
    PlantedWorkplace place({"ModBus.coil", "ModBus.holding register", "PLC1", "PLC1.TANK/"});
    Configuration& c = place.configuration;
    const auto imported = [&](const char* name) {
        const std::string bytes = readFile(std::filesystem::path(TREVANDIX_TABLES) / name);
        const ChangeSet set(c, readTable(bytes));
        EXPECT_EQ(set.refused(), 0U) << name;
        set.apply(c);
        EXPECT_EQ(told(ChangeSet(c, readTable(bytes))), Texts()) << name;
        return set.accepted();
    };
    EXPECT_EQ(imported("libreoffice.csv"), 3U);
    EXPECT_EQ(place.item("PLC1.TANK.North.Level").sComment(),
              "\xCE\xA3\xCF\x84\xCE\xAC\xCE\xB8\xCE\xBC\xCE\xB7, 3/4\" pipe");
    EXPECT_EQ(place.item("PLC1.TANK.North.Alarm").sComment(), "=LOW; see manual");
    EXPECT_EQ(imported("windows.csv"), 3U);
    EXPECT_EQ(place.item("PLC1.TANK.North.Level").sComment(),
              "\xCE\x94\xCE\xB5\xCE\xBE\xCE\xB1\xCE\xBC\xCE\xB5\xCE\xBD\xCE\xAE \"A\"");
}

TEST(Table, AFailureLeavesEverythingAsItWas) {
    PlantedWorkplace place({"ModBus.coil", "U", "U.A/", "U.A.x", "U.A.y"});
    Configuration& c = place.configuration;
    c.setComment(Key("U.A.x"), "c");
    place.run("mnuUndo");
    place.configuration.setSaved(true);
    const Texts before = fileContents(c);
    const std::uint64_t revision = c.revision();
    const std::string undoName(c.undoName());
    const Table table = readTable(
        "Unit,Branch,Name,New Name,Comment,ModBus Type,Data Type,Address,Access Rights\n"
        "U,A,x,y,a,coil,boolean,1,READ\nU,A,y,x,a,coil,boolean,1,READ\n"
        "U,New,z,,a,coil,boolean,1,READ\n");
    const ChangeSet set(c, table);
    ASSERT_EQ(set.accepted(), 3U);
    int calls = 0;
    const auto fail = [&](std::size_t, std::size_t) {
        if (++calls > 0) throw RuntimeError(ErrorNumber::CancelWasSelected);
    };
    EXPECT_THROW(set.apply(c, fail), RuntimeError);
    // A name that somebody takes behind the back of the change set, which notices it in the middle of its
    // work.
    behindTheDoor(c.items).add(std::make_shared<clsItem>(), Key("U.New.z"));
    EXPECT_THROW(set.apply(c), RuntimeError);
    behindTheDoor(c.items).remove(Key("U.New.z"));
    EXPECT_EQ(fileContents(c), before);
    EXPECT_EQ(place.wrong(), Texts());
    EXPECT_TRUE(c.revision() == revision && c.state.saved && c.undoName() == undoName &&
                c.redoName() == "Comment item x");
    set.apply(c);
    EXPECT_EQ(c.undoName(), "Import 3 changes");
    EXPECT_THROW(set.apply(c), RuntimeError) << "judged for another state";
}

}  // namespace trevandix::testing
