#include "TambaCore/Model/JSONWriter.h"

namespace tamba::ModelsJSON {

void appendQuoted(std::string& out, std::string_view text) {
    constexpr char hex[] = "0123456789abcdef";
    out += '"';
    std::size_t clean = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto c = static_cast<unsigned char>(text[i]);
        if (c >= 0x20 && c != '"' && c != '\\') continue;
        out.append(text, clean, i - clean);
        clean = i + 1;
        switch (c) {
            case '"':
                out += "\\\"";
                break;
            case '\\':
                out += "\\\\";
                break;
            case '\n':
                out += "\\n";
                break;
            case '\r':
                out += "\\r";
                break;
            case '\t':
                out += "\\t";
                break;
            default:
                out += "\\u00";
                out += hex[c >> 4];
                out += hex[c & 15];
        }
    }
    out.append(text, clean);
    out += '"';
}

std::string quoted(std::string_view text) {
    std::string out;
    appendQuoted(out, text);
    return out;
}

/// JSON without blanks that was checked when it was read, laid out anew at the present depth. No recursion: it may be
/// nested deeply.
void Writer::raw(std::string_view json) {
    const std::size_t base = depth_;
    for (std::size_t i = 0; i < json.size(); ++i) {
        const char c = json[i];
        switch (c) {
            case ' ':
            case '\t':
            case '\n':
            case '\r':
                break;
            case '"': {
                const std::size_t begin = i++;
                while (json[i] != '"') i += json[i] == '\\' ? 2 : 1;
                out.append(json, begin, i + 1 - begin);
                break;
            }
            case '{':
            case '[':
                out += c;
                if (json[i + 1] == '}' || json[i + 1] == ']') {
                    out += json[++i];
                } else {
                    ++depth_;
                    newLine();
                }
                break;
            case '}':
            case ']':
                --depth_;
                newLine();
                out += c;
                break;
            case ',':
                out += c;
                newLine();
                break;
            case ':':
                out += pretty_ ? ": " : ":";
                break;
            default:
                out += c;
        }
    }
    depth_ = base;
}

std::string encode(const Library& library, std::size_t sizeHint) {
    Writer writer(Layout::pretty);
    writer.out.reserve(sizeHint + sizeHint / 20 + 4096);
    writer.value(library);
    writer.out += '\n';
    return std::move(writer.out);
}

template <class Record>
std::string json(const Record& record, Layout layout) {
    Writer writer(layout);
    writer.value(record);
    return std::move(writer.out);
}

template std::string json(const Library&, Layout);
template std::string json(const Business&, Layout);
template std::string json(const Client&, Layout);
template std::string json(const PartySnapshot&, Layout);
template std::string json(const CatalogItem&, Layout);
template std::string json(const Category&, Layout);
template std::string json(const Project&, Layout);
template std::string json(const Attachment&, Layout);
template std::string json(const Expense&, Layout);
template std::string json(const RecurringExpense&, Layout);
template std::string json(const Line&, Layout);
template std::string json(const Payment&, Layout);
template std::string json(const Document&, Layout);
template std::string json(const NumberSeries&, Layout);
template std::string json(const BankAccount&, Layout);
template std::string json(const BankTransaction&, Layout);
template std::string json(const CategoryRule&, Layout);
template std::string json(const FXRate&, Layout);
template std::string json(const TaxSplit&, Layout);

}  // namespace tamba::ModelsJSON
