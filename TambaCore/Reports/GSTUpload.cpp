#include "TambaCore/Base/Text.h"
#include "TambaCore/Model/ModelsJSON.h"
#include "TambaCore/Reports/GSTFigures.h"
#include "TambaCore/Reports/GSTReturns.h"
#include "TambaCore/Reports/GSTRules.h"

#include <cstdlib>
#include <initializer_list>
#include <string_view>
#include <utility>

/// The files of the returns' offline tools: keys in the tools' own order, amounts as plain decimals of rupees made from
/// whole paise, dates as DD-MM-YYYY. What is empty is left out of GSTR-1, since the portal refuses empty lists; GSTR-3B
/// has every key, blanks as 0.
namespace tamba::GSTReturns {
namespace {

/// Told by the release of the offline tool whose files these are like.
constexpr std::string_view toolVersion = "GST3.2.4";

/// Hundredths as a decimal without needless zeros: 149850 is 1498.5, −90000 is -900. Rates in basis points too.
std::string decimal(std::int64_t hundredths) {
    const auto size =
        hundredths < 0 ? 0 - static_cast<std::uint64_t>(hundredths) : static_cast<std::uint64_t>(hundredths);
    std::string text = (hundredths < 0 ? "-" : "") + std::to_string(size / 100);
    if (size % 100 == 0) return text;
    text += "." + std::to_string(100 + size % 100).substr(1);
    if (text.back() == '0') text.pop_back();
    return text;
}

/// A JSON object or list whose members keep their order. Empty texts, objects and lists are left out.
class Node {
public:
    static Node object() { return Node('{', '}'); }
    static Node list() { return Node('[', ']'); }

    Node& text(std::string_view key, std::string_view value) {
        return value.empty() ? *this : add(key, ModelsJSON::quoted(value));
    }
    Node& count(std::string_view key, std::int64_t value) { return add(key, std::to_string(value)); }
    Node& amount(std::string_view key, std::int64_t hundredths) { return add(key, decimal(hundredths)); }
    Node& node(std::string_view key, const Node& value) { return value.isEmpty() ? *this : add(key, value.json()); }
    /// Written though it is empty.
    Node& whole(std::string_view key, const Node& value) { return add(key, value.json()); }
    Node& item(const Node& value) { return value.isEmpty() ? *this : put(value.json()); }

    [[nodiscard]] bool isEmpty() const { return text_.size() == 1; }
    [[nodiscard]] std::string json() const { return text_ + close_; }

private:
    Node(char open, char close) : text_(1, open), close_(close) {}
    Node& add(std::string_view key, std::string_view json) {
        return put("\"" + std::string(key) + "\":" + std::string(json));
    }
    Node& put(std::string_view json) {
        if (!isEmpty()) text_ += ',';
        text_ += json;
        return *this;
    }
    std::string text_;
    char close_;
};

std::string dateText(const Day& day) { return day.formatted("dd-MM-yyyy"); }

/// CGST and SGST, or IGST, never both.
Node& addTax(Node& node, const TaxSplit& tax, bool intraState) {
    if (intraState)
        node.amount("camt", tax.cgst).amount("samt", tax.sgst);
    else
        node.amount("iamt", tax.igst);
    return node.amount("csamt", 0);
}

enum class Shape { numbered, flat };
Node items(const Entry& entry, Shape shape) {
    Node list = Node::list();
    for (const RateGroup& rate : entry.rates) {
        Node detail = Node::object();
        detail.amount("txval", rate.taxable).amount("rt", rate.rateBP);
        addTax(detail, rate.tax, entry.supply == SupplyType::intraState);
        if (shape == Shape::flat)
            list.item(detail);
        else
            list.item(Node::object().count("num", rate.rateBP + 1).node("itm_det", detail));
    }
    return list;
}

std::string_view invoiceType(SupplyType supply) {
    if (supply == SupplyType::sezWithIGST) return "SEWP";
    return supply == SupplyType::sezLUT ? "SEWOP" : "R";
}

Node invoice(const Entry& entry) {
    return Node::object().text("inum", entry.number).text("idt", dateText(entry.date)).amount("val", entry.value);
}
Node creditNote(const Entry& entry) {
    return Node::object()
        .text("nt_num", entry.number)
        .text("nt_dt", dateText(entry.date))
        .text("ntty", "C")
        .amount("val", entry.value);
}
void addRecipientKeys(Node& node, const Entry& entry) {
    node.text("pos", entry.place)
        .text("rchrg", "N")
        .text("inv_typ", invoiceType(entry.supply))
        .node("itms", items(entry, Shape::numbered));
}

/// Entries below the key they share, in the order in which the keys are first seen.
template <class Key, class Make>
Node grouped(const std::vector<Entry>& entries, std::string_view keyName, std::string_view listName, Key&& key,
             Make&& make) {
    std::vector<std::pair<std::string, Node>> groups;
    for (const Entry& entry : entries) {
        const std::string own(key(entry));
        auto group = groups.begin();
        while (group != groups.end() && group->first != own) ++group;
        if (group == groups.end()) group = groups.emplace(groups.end(), own, Node::list());
        group->second.item(make(entry));
    }
    Node result = Node::list();
    for (const auto& [own, list] : groups) result.item(Node::object().text(keyName, own).node(listName, list));
    return result;
}

Node consumers(const std::vector<ConsumerRow>& rows) {
    Node list = Node::list();
    for (const ConsumerRow& row : rows) {
        const bool intraState = row.supply == SupplyType::intraState;
        Node one = Node::object();
        one.text("sply_ty", intraState ? "INTRA" : "INTER")
            .amount("rt", row.rateBP)
            .text("typ", "OE")
            .text("pos", row.place)
            .amount("txval", row.taxable);
        list.item(addTax(one, row.tax, intraState));
    }
    return list;
}

Node nilRated(const std::vector<NilRow>& rows) {
    Node list = Node::list();
    for (const NilRow& row : rows)
        list.item(Node::object()
                      .text("sply_ty", std::string(row.supply == SupplyType::intraState ? "INTRA" : "INTR") +
                                           (row.registered ? "B2B" : "B2C"))
                      .amount("expt_amt", 0)
                      .amount("nil_amt", row.taxable)
                      .amount("ngsup_amt", 0));
    return Node::object().node("inv", list);
}

Node unregisteredNotes(const std::vector<Entry>& entries) {
    Node list = Node::list();
    for (const Entry& entry : entries) {
        Node one = creditNote(entry);
        if (GSTFigures::isExport(entry.supply))
            one.text("typ", entry.supply == SupplyType::exportLUT ? "EXPWOP" : "EXPWP");
        else
            one.text("typ", "B2CL").text("pos", entry.place);
        list.item(one.node("itms", items(entry, Shape::numbered)));
    }
    return list;
}

Node numbers(const std::vector<NumberRun>& runs) {
    Node kinds = Node::list();
    for (const auto& [kind, position, title] :
         {std::tuple(DocKind::invoice, 1, "Invoices for outward supply"), {DocKind::creditNote, 5, "Credit Note"}}) {
        Node list = Node::list();
        std::int64_t row = 0;
        for (const NumberRun& run : runs) {
            if (run.kind != kind) continue;
            const auto used = static_cast<std::int64_t>(run.used), cancelled = static_cast<std::int64_t>(run.cancelled);
            list.item(Node::object()
                          .count("num", ++row)
                          .text("from", run.from)
                          .text("to", run.to)
                          .count("totnum", used)
                          .count("cancel", cancelled)
                          .count("net_issue", used - cancelled));
        }
        if (!list.isEmpty())
            kinds.item(Node::object().count("doc_num", position).text("doc_typ", title).node("docs", list));
    }
    return Node::object().node("doc_det", kinds);
}

Node codes(const std::vector<HSNRow>& rows) {
    Node list = Node::list();
    std::int64_t number = 0;
    for (const HSNRow& row : rows)
        list.item(Node::object()
                      .count("num", ++number)
                      .text("hsn_sc", row.code)
                      .text("user_desc", row.description)
                      .text("uqc", row.unit)
                      .amount("qty", MoneyMath::mulDiv(row.qtyMilli, 1, 10))
                      .amount("rt", row.rateBP)
                      .amount("txval", row.taxable)
                      .amount("iamt", row.tax.igst)
                      .amount("samt", row.tax.sgst)
                      .amount("camt", row.tax.cgst)
                      .amount("csamt", 0));
    return list;
}

Node fourTaxes(const TaxSplit& tax) {
    return Node::object().amount("iamt", tax.igst).amount("camt", tax.cgst).amount("samt", tax.sgst).amount("csamt", 0);
}
Node supplied(const TaxedAmount& amount) {
    Node node = Node::object();
    return node.amount("txval", amount.taxable)
        .amount("iamt", amount.tax.igst)
        .amount("camt", amount.tax.cgst)
        .amount("samt", amount.tax.sgst)
        .amount("csamt", 0);
}
/// One row for each kind; the last one carries the tax.
Node creditRows(std::initializer_list<std::string_view> kinds, const TaxSplit& last) {
    Node list = Node::list();
    for (const std::string_view& kind : kinds) {
        const TaxSplit tax = &kind == kinds.end() - 1 ? last : TaxSplit();
        list.item(Node::object()
                      .text("ty", kind)
                      .amount("iamt", tax.igst)
                      .amount("camt", tax.cgst)
                      .amount("samt", tax.sgst)
                      .amount("csamt", 0));
    }
    return list;
}

}  // namespace

std::string periodCode(const Period& period) { return period.to.formatted("MMyyyy"); }

std::string uploadText(const GSTR1& outward) {
    const auto recipientOf = [](const Entry& entry) { return entry.gstin; };
    const auto placeOf = [](const Entry& entry) { return entry.place; };
    const auto exportTypeOf = [](const Entry& entry) {
        return entry.supply == SupplyType::exportLUT ? "WOPAY" : "WPAY";
    };
    const auto registered = [](const Entry& entry) {
        Node node = entry.kind == DocKind::creditNote ? creditNote(entry) : invoice(entry);
        addRecipientKeys(node, entry);
        return node;
    };
    const auto plain = [](const Entry& entry) {
        const Shape shape = GSTFigures::isExport(entry.supply) ? Shape::flat : Shape::numbered;
        return invoice(entry).node("itms", items(entry, shape));
    };
    const bool split = GSTRules::value(GSTRules::Rule::hsnSplit, outward.period.to) != 0;
    Node hsn = Node::object();
    hsn.node(split ? "hsn_b2b" : "data", codes(outward.hsnB2B)).node("hsn_b2c", codes(outward.hsnB2C));
    return Node::object()
               .text("gstin", outward.gstin)
               .text("fp", periodCode(outward.period))
               .text("version", toolVersion)
               .text("hash", "hash")
               .node("b2b", grouped(outward.b2b, "ctin", "inv", recipientOf, registered))
               .node("b2cl", grouped(outward.b2cl, "pos", "inv", placeOf, plain))
               .node("b2cs", consumers(outward.b2cs))
               .node("nil", nilRated(outward.nilRated))
               .node("exp", grouped(outward.exports, "exp_typ", "inv", exportTypeOf, plain))
               .node("cdnr", grouped(outward.cdnr, "ctin", "nt", recipientOf, registered))
               .node("cdnur", unregisteredNotes(outward.cdnur))
               .node("doc_issue", numbers(outward.numbers))
               .node("hsn", hsn)
               .json() +
           "\n";
}

std::string uploadText(const GSTR3B& summary) {
    const Node nothing = supplied({});
    Node supplies = Node::object();
    supplies.node("osup_det", supplied(summary.taxed))
        .node("osup_zero", supplied(summary.zeroRated))
        .node("osup_nil_exmp", supplied({summary.nilRated, {}}))
        .node("isup_rev", nothing)
        .node("osup_nongst", nothing);
    Node operators = Node::object();
    operators.node("eco_sup", nothing).node("eco_reg_sup", Node::object().amount("txval", 0));
    Node credit = Node::object();
    credit.node("itc_avl", creditRows({"IMPG", "IMPS", "ISRC", "ISD", "OTH"}, summary.credit))
        .node("itc_rev", creditRows({"RUL", "OTH"}, {}))
        .node("itc_net", fourTaxes(summary.credit))
        .node("itc_inelg", creditRows({"RUL", "OTH"}, {}));
    Node inward = Node::list();
    for (const char* kind : {"GST", "NONGST"})
        inward.item(Node::object().text("ty", kind).amount("inter", 0).amount("intra", 0));
    Node result = Node::object();
    result.text("gstin", summary.gstin)
        .text("ret_period", periodCode(summary.period))
        .node("sup_details", supplies)
        .node("eco_dtls", operators)
        .node("itc_elg", credit)
        .node("inward_sup", Node::object().node("isup_details", inward))
        .node("intr_ltfee", Node::object().node("intr_details", fourTaxes({})).whole("ltfee_details", Node::object()));
    if (GSTRules::value(GSTRules::Rule::interStateTable, summary.period.to) != 0) {
        Node places = Node::list();
        for (const PlaceRow& row : summary.interState)
            places.item(Node::object().text("pos", row.place).amount("txval", row.taxable).amount("iamt", row.igst));
        Node table = Node::object();
        table.whole("unreg_details", places).whole("comp_details", Node::list()).whole("uin_details", Node::list());
        result.node("inter_sup", table);
    }
    return result.json() + "\n";
}

}  // namespace tamba::GSTReturns
