#include "TambaCore/Base/Text.h"
#include "TambaCore/Fixtures.h"
#include "TambaCore/Fixtures/Dice.h"
#include "TambaCore/Model/Fields.h"
#include "TambaCore/Model/ModelsJSON.h"
#include "tests/support/Books.h"

namespace tamba {
namespace {

using testing::aLibrary;

/// The books as text with one piece of it exchanged, the first time it occurs.
std::string with(const Library& library, std::string_view piece, std::string_view other) {
    std::string text = ModelsJSON::encode(library);
    const auto at = text.find(piece);
    EXPECT_NE(at, std::string::npos) << piece;
    return text.replace(at, piece.size(), other);
}

std::string whyNot(std::string text) {
    try {
        (void)ModelsJSON::decode(std::move(text));
    } catch (const ModelsJSON::DecodeError& error) {
        return error.what();
    }
    return "";
}

TEST(ModelsJSON, aNewBookHasItsDefaults) {
    const Library library = ModelsJSON::decode(ModelsJSON::encode(Library::make()));
    EXPECT_EQ(library.version, 1);
    EXPECT_EQ(library.categories.size(), 13u);
    EXPECT_EQ(library.categories[4].name, "Meals");
    EXPECT_FALSE(library.categories[4].claimsTax);
    EXPECT_EQ(library.series.size(), 3u);
    EXPECT_EQ(library.series[2].pattern, "CN/{FY}/{###}");
    EXPECT_EQ(library.accounts.size(), 1u);
    EXPECT_EQ(library.accounts[0].name, "Current account");
    EXPECT_FALSE(library.onboarded);
}

TEST(ModelsJSON, whatIsWrittenReadsBackTheSame) {
    const Library library = aLibrary();
    const std::string text = ModelsJSON::encode(library);
    const Library again = ModelsJSON::decode(text);
    EXPECT_EQ(again, library);
    EXPECT_EQ(ModelsJSON::encode(again), text);
    EXPECT_EQ(ModelsJSON::decode("\xEF\xBB\xBF" + text), library) << "a byte-order mark";
    for (const char* absent : {"\"sentOn\"", "\"ocrText\" : null", "\"logoFile\"", "\"projectID\""})
        EXPECT_EQ(text.find(absent), std::string::npos) << absent;
}

TEST(ModelsJSON, noDayMakesTheBooksUnreadable) {
    for (const Day day : {Day{9999, 12, 31}, {10000, 1, 5}, {10000, 12, 15}, {999999, 2, 28}, {26, 4, 1}, {0, 1, 1}}) {
        Library library = aLibrary();
        library.expenses.update(0, [day](Expense& expense) { expense.date = day; });
        EXPECT_EQ(ModelsJSON::decode(ModelsJSON::encode(library)).expenses[0].date, day) << day.iso();
    }
    for (const char* text : {"10000-13-01", "10001-02-29", "99999999999-01-01"})
        EXPECT_EQ(whyNot(with(aLibrary(), "2026-10-14\"", std::string(text) + "\"")).find("Bad day"), 0U) << text;
}

TEST(ModelsJSON, theFormIsTheOneOtherProgramsRead) {
    Expense e = Expense::make({2026, 2, 3});
    e.id = *UUID::parse("0a1b2c3d-4e5f-6071-8293-a4b5c6d7e8f9");
    e.createdAt = *parseInstant("2026-04-01T09:30:00Z");
    e.method = PaymentMethod::pettyCash;
    e.vendor = "a\"b\\c\n\x01₹";
    const std::string line = ModelsJSON::json(e);
    for (const char* piece :
         {R"("id":"0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9")", R"("date":"2026-02-03")",
          R"("createdAt":"2026-04-01T09:30:00Z")", R"("method":"pettyCash")", R"("vendor":"a\"b\\c\n\u0001₹")",
          R"("taxSplit":{"cgst":0,"igst":0,"other":0,"sgst":0})", R"("attachments":[])"})
        EXPECT_NE(line.find(piece), std::string::npos) << piece << "\n" << line;
}

TEST(ModelsJSON, aWrongFileNamesTheCulprit) {
    const Library library = aLibrary();
    const struct {
        const char *piece, *other, *message;
    } cases[] = {
        {"\"dueDate\": \"2026-10-16\"", "\"dueDate\": \"2026-02-30\"", "Bad day 2026-02-30 (documents[0].dueDate)"},
        {"\"dueDate\": \"2026-10-16\"", "\"dueDate\": \"a₹₹₹₹₹₹₹₹₹₹₹₹₹₹₹₹₹₹₹₹₹\"",
         "Bad day a₹₹₹₹₹₹₹₹₹₹₹₹₹₹₹₹₹₹… (documents[0].dueDate)"},
        {"\"remindersSent\": 0,", "", "Missing key (documents[0].remindersSent)"},
        {"\"qtyMilli\": 1500", "\"qtyMilli\": 1.5", "Not a whole number (documents[0].lines[0].qtyMilli)"},
        {"\"qtyMilli\": 1500", "\"qtyMilli\": \"1500\"", "Not a whole number (documents[0].lines[0].qtyMilli)"},
        {"\"qtyMilli\": 1500", "\"qtyMilli\": 99999999999999999999",
         "Not a whole number (documents[0].lines[0].qtyMilli)"},
        {"\"taxBP\": 1800", "\"taxBP\": 99999999999", "Not a number of this size (documents[0].lines[0].taxBP)"},
        {"\"method\": \"upi\"", "\"method\": \"barter\"", "Unknown word barter (documents[0].payments[0].method)"},
        {"\"onboarded\": false", "\"onboarded\": 0", "Neither true nor false (onboarded)"},
        {"\"rules\": [", "\"rules\": 7, \"r2\": [", "Not a list (rules)"},
        {"\"26-27\": 2", "\"26-27\": true", "Not a whole number (series[0].next.26-27)"},
        {"\"cgst\": 900", "\"cgst\": 900, \"cess\": 1", "Unknown key (expenses[0].taxSplit.cess)"},
        {"\"vendor\": \"Chai Point\"", "\"vendor\": \"A\", \"vendor\": \"B\"",
         "Key written twice (expenses[0].vendor)"},
        {"\"version\": 1", "\"version\": 1, \"x\": 1, \"x\": 2", "Key written twice (x)"},
        {"\"version\": 1", "\"version\": 1, \"x\": [1, nonsense]", "The file is damaged or cut off (x)"},
    };
    for (const auto& c : cases) EXPECT_EQ(whyNot(with(library, c.piece, c.other)), c.message) << c.other;

    std::string id = ModelsJSON::encode(library);
    id.replace(id.find("\"id\": \"") + 7, 36, "not-an-id");
    EXPECT_EQ(whyNot(id).substr(0, 24), "Bad identifier not-an-id");
    EXPECT_EQ(whyNot(""), "The file is empty");
    EXPECT_EQ(whyNot(ModelsJSON::encode(library) + "{}"), "There is something after the end of the books");
    EXPECT_EQ(whyNot(with(library, "Chai Point", "Chai \xFF")), "The text is not UTF-8");
}

TEST(ModelsJSON, aLongListIsReadInOrderAndNamesItsFirstCulprit) {
    Library library = Library::make();
    for (int i = 0; i < 2500; ++i) {
        Expense expense = Expense::make({2026, 1, 1});
        expense.vendor = "V" + std::to_string(i);
        expense.notes = i < 2499 ? "\\ \" ₹ ] }" : std::string(600'000, '}');
        library.expenses.append(expense);
    }
    const std::string text = ModelsJSON::encode(library);
    EXPECT_EQ(ModelsJSON::decode(text), library);
    std::size_t seams = 0;
    for (auto at = text.find("    },\n    {\n"); at != text.npos; at = text.find("    },\n    {\n", at + 1)) ++seams;
    EXPECT_EQ(seams, 2499 + library.categories.size() - 1 + library.series.size() - 1) << "also where stretches meet";
    const auto exchanged = [](std::string text, const std::string& piece, const std::string& other) {
        return text.replace(text.find(piece), piece.size(), other);
    };
    const std::string late = with(library, "\"V2400\"", "7");
    EXPECT_EQ(whyNot(late), "Not a text (expenses[2400].vendor)");
    EXPECT_EQ(whyNot(exchanged(late, "\"V1200\"", "true")), "Not a text (expenses[1200].vendor)");
    const std::string noRecord = exchanged(late, "\"expenses\": [", "\"expenses\": [\n5,");
    EXPECT_EQ(whyNot(noRecord), "Not a record (expenses[0])");
    for (const char* broken : {"", "\"V1200", "}", "]", "{", "\"V1200\", ,"})
        EXPECT_NE(whyNot(with(library, "\"V1200\"", broken)), "") << broken;
    std::string comma = ModelsJSON::encode(library);
    comma.insert(comma.find("\n  ]", comma.find("\"expenses\"")), ",\n");
    EXPECT_NE(whyNot(comma), "");
}

/// Books laid out as they are written here are read by a shorter way, which a blank in front of them bars.
TEST(ModelsJSON, booksWithOurLayoutAreReadAsAnyOthers) {
    const Library library = Fixtures::large(8, 4, 8, {2026, 11, 20});
    const std::string text = ModelsJSON::encode(library);
    Fixtures::Dice dice(std::uint64_t{7});
    const auto at = [&](std::size_t size) { return static_cast<std::size_t>(dice.below(static_cast<int>(size))); };
    for (const auto& [piece, other] : {std::pair{"    }\n  ]", "    },\n\n  ]"},
                                       {"    },\n    {", "    }\n    {"},
                                       {"    },\n    {", "    },,\n    {"},
                                       {"    },\n    {", "    },\n    7,\n    {"},
                                       {"    },\n    {", "    }, {"}}) {
        const std::string changed = with(library, piece, other);
        EXPECT_EQ(whyNot(changed), whyNot(" " + changed)) << other;
    }
    int read = 0, refused = 0;
    for (int i = 0; i < 600; ++i) {
        std::string changed = text;
        const std::size_t line = changed.find('\n', at(text.size() - 200)) + 1, past = changed.find('\n', line) + 1;
        switch (i % 5) {
            case 0:
                changed.erase(line, past - line);
                break;
            case 1:
                changed.insert(line, text.substr(line, past - line));
                break;
            case 2:
                changed[line + at(past - line)] = "{}[],:\" \n\\\xFF"[at(12)];
                break;
            case 3:
                changed.insert(line, at(2) ? "\n" : "    ");
                break;
            default:
                changed.erase(line + at(past - line), 1);
        }
        const std::string why = whyNot(changed);
        ASSERT_EQ(why, whyNot(" " + changed)) << i;
        (why.empty() ? read : refused) += 1;
        if (why.empty()) {
            ASSERT_EQ(ModelsJSON::decode(changed), ModelsJSON::decode(" " + changed)) << i;
        }
    }
    EXPECT_GT(read, 100);
    EXPECT_GT(refused, 100);
}

TEST(ModelsJSON, bytesThatAreNoTextCannotMakeTheBooksUnreadable) {
    Library l = Library::make();
    l.business.name = "Caf\xE9 \xE2\x82";
    for (int i = 0; i < 3000; ++i) l.expenses.append(testing::anExpense(i % 1000 == 999 ? "\xE9" : "Chai"));
    const Library read = ModelsJSON::decode(ModelsJSON::encode(l));
    EXPECT_EQ(read.business.name, "Caf\uFFFD \uFFFD");
    EXPECT_EQ(read.expenses[1999].vendor, "\uFFFD");
}

TEST(ModelsJSON, aLongListIsTheSameInPieces) {
    Library l = aLibrary();
    for (int i = 0; i < 3001; ++i) l.expenses.append(testing::anExpense("v" + std::to_string(i)));
    EXPECT_EQ(ModelsJSON::encode(l), ModelsJSON::json(l, ModelsJSON::Layout::pretty) + "\n");
    struct DiskFull {};
    for (int left : {0, 1, 5}) {
        const auto pieces = [&left](std::string_view) {
            if (left-- == 0) throw DiskFull();
        };
        EXPECT_THROW(ModelsJSON::encode(l, pieces), DiskFull);
    }
}

TEST(ModelsJSON, aFileCutOffAnywhereIsRefused) {
    const std::string text = ModelsJSON::encode(aLibrary());
    const std::size_t end = text.find_last_not_of('\n');
    for (std::size_t cut = 0; cut <= end; cut += 37) EXPECT_NE(whyNot(text.substr(0, cut)), "") << cut;
}

TEST(ModelsJSON, keysOfANewerVersionAreWrittenBack) {
    std::string text = with(aLibrary(), "\"version\": 1", "\"version\": 7");
    const std::string extra = R"("zebra": {"a": [1, {"b": "x\"}"}, []], "c": {}, "d": -1.5e3})";
    const std::string nested = R"("cool": null, "vendor": "Chai Point")";
    text.replace(text.rfind("\n}"), 0, ",\n  " + extra);
    text.replace(text.find("\"vendor\": \"Chai Point\""), 22, nested);
    const Library library = ModelsJSON::decode(text);
    EXPECT_EQ(library.version, 7);
    const std::string again = ModelsJSON::encode(library);
    EXPECT_NE(again.find("\"version\": 7"), std::string::npos);
    EXPECT_NE(again.find("\"cool\": null"), std::string::npos);
    EXPECT_NE(again.find(R"(  "zebra": {
    "a": [
      1,
      {
        "b": "x\"}"
      },
      []
    ],
    "c": {},
    "d": -1.5e3
  })"),
              std::string::npos)
        << again.substr(again.size() - 300);
    EXPECT_EQ(ModelsJSON::decode(again), library);
    Library edited = library;
    edited.expenses.update(0, [](Expense& e) { e.vendor = "Chai"; });
    EXPECT_NE(ModelsJSON::encode(edited).find("\"cool\": null"), std::string::npos) << "an edit keeps them";
}

TEST(ModelsJSON, knowsAKeyWrittenWithEscapes) {
    const Library library = aLibrary();
    EXPECT_EQ(ModelsJSON::decode(with(library, "\"stateCode\"", "\"st\\u0061teCode\"")), library);
}

TEST(ModelsJSON, nonsenseIsRefusedWithoutFallingOver) {
    EXPECT_NE(whyNot(std::string(5'000'000, '[')), "");
    EXPECT_NE(whyNot("{\"version\":" + std::string(200'000, '[') + std::string(200'000, ']') + "}"), "");
    EXPECT_NE(whyNot(std::string(1000, '\0')), "");
    EXPECT_NE(whyNot("null"), "");
    EXPECT_NE(whyNot("{}"), "");
    std::string many = "{";
    for (int i = 0; i < 100'000; ++i) many += "\"k" + std::to_string(i) + "\":1,";
    EXPECT_EQ(whyNot(many + "\"z\":1}").substr(0, 11), "Missing key");
}

}  // namespace
}  // namespace tamba
