// Encoding of record lists as XML property lists (Apple's format 1.0, keys in
// sorted order, tab indentation) or as binary property lists (libplist).
#include "ConfigRecords.h"
#include "PlistCodec.h"
#include "Utf8.h"

#include <plist/plist.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <numeric>

namespace tessaro {

namespace {

using namespace std::string_view_literals;

// ---- Writers ----------------------------------------------------------------

class XmlWriter {
public:
    XmlWriter()
    {
        out_ = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
               "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
               "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
               "<plist version=\"1.0\">\n";
    }

    void beginDict(std::size_t count) { begin("dict", count); }
    void endDict() { end("dict"); }
    void beginArray(std::size_t count) { begin("array", count); }
    void endArray() { end("array"); }

    void key(std::string_view k)
    {
        indent();
        out_ += "<key>"sv;
        escape(k);
        out_ += "</key>\n"sv;
    }
    void string(std::string_view s)
    {
        if (const char* problem = storedTextProblem(s))
            throw CodingError(problem);
        indent();
        out_ += "<string>"sv;
        escape(s);
        out_ += "</string>\n"sv;
    }
    void integer(std::int64_t value)
    {
        indent();
        out_ += "<integer>"sv;
        char buffer[24];
        auto [end, ec] = std::to_chars(buffer, buffer + sizeof buffer, value);
        out_.append(buffer, end);
        out_ += "</integer>\n"sv;
    }
    void real(double value)
    {
        indent();
        out_ += "<real>"sv;
        if (std::isnan(value)) {
            out_ += "nan"sv;
        } else if (std::isinf(value)) {
            out_ += value > 0 ? "+infinity"sv : "-infinity"sv;
        } else {
            char buffer[40];
            auto [end, ec] = std::to_chars(buffer, buffer + sizeof buffer, value);
            out_.append(buffer, end);
        }
        out_ += "</real>\n"sv;
    }
    void boolean(bool value)
    {
        indent();
        out_ += value ? "<true/>\n"sv : "<false/>\n"sv;
    }

    std::string finish()
    {
        out_ += "</plist>\n"sv;
        return std::move(out_);
    }

private:
    void begin(const char* tag, std::size_t count)
    {
        indent();
        out_ += '<';
        out_ += tag;
        if (count == 0) {
            out_ += "/>\n"sv;
            emptyOpen_ = true;
            return;
        }
        out_ += ">\n"sv;
        ++depth_;
    }
    void end(const char* tag)
    {
        if (emptyOpen_) {
            emptyOpen_ = false;
            return;
        }
        --depth_;
        indent();
        out_ += "</"sv;
        out_ += tag;
        out_ += ">\n"sv;
    }
    void indent() { out_.append(static_cast<std::size_t>(depth_), '\t'); }

    // Escapes markup characters; a carriage return is written as a character
    // reference so that reading does not turn it into a line feed.
    void escape(std::string_view s)
    {
        std::size_t start = 0;
        for (std::size_t i = 0; i < s.size(); ++i) {
            std::string_view replacement;
            switch (s[i]) {
            case '&': replacement = "&amp;"sv; break;
            case '<': replacement = "&lt;"sv; break;
            case '>': replacement = "&gt;"sv; break;
            case '\r': replacement = "&#13;"sv; break;
            default: continue;
            }
            out_.append(s, start, i - start);
            out_ += replacement;
            start = i + 1;
        }
        out_.append(s, start, s.size() - start);
    }

    std::string out_;
    int depth_ = 0;
    bool emptyOpen_ = false; // the last container opened was written as <x/>
};

// Builds a libplist tree and writes it in the binary format.
class BinaryWriter {
public:
    ~BinaryWriter()
    {
        if (root_)
            plist_free(root_);
    }

    void beginDict(std::size_t) { push(plist_new_dict()); }
    void endDict() { stack_.pop_back(); }
    void beginArray(std::size_t) { push(plist_new_array()); }
    void endArray() { stack_.pop_back(); }
    void key(std::string_view k) { pendingKey_.assign(k); }
    void string(std::string_view s)
    {
        if (const char* problem = storedTextProblem(s))
            throw CodingError(problem);
        add(plist_new_string(std::string(s).c_str()));
    }
    void integer(std::int64_t value) { add(plist_new_uint(static_cast<std::uint64_t>(value))); }
    void real(double value) { add(plist_new_real(value)); }
    void boolean(bool value) { add(plist_new_bool(value ? 1 : 0)); }

    std::string finish()
    {
        char* data = nullptr;
        std::uint32_t length = 0;
        plist_to_bin(root_, &data, &length);
        if (!data)
            throw CodingError("The property list could not be written in the binary format.");
        std::string bytes(data, length);
        plist_to_bin_free(data);
        return bytes;
    }

private:
    void push(plist_t container)
    {
        add(container);
        stack_.push_back(container);
    }
    void add(plist_t node)
    {
        if (stack_.empty()) {
            root_ = node;
            return;
        }
        plist_t parent = stack_.back();
        if (plist_get_node_type(parent) == PLIST_DICT)
            plist_dict_set_item(parent, pendingKey_.c_str(), node);
        else
            plist_array_append_item(parent, node);
    }

    plist_t root_ = nullptr;
    std::vector<plist_t> stack_;
    std::string pendingKey_;
};

// ---- The generic encoder ----------------------------------------------------

template <class W>
void encodeValue(W& w, const std::string& value)
{
    w.string(value);
}
template <class W>
void encodeValue(W& w, const Uuid& value)
{
    w.string(value.text());
}
template <class W>
void encodeValue(W& w, bool value)
{
    w.boolean(value);
}
template <class W>
void encodeValue(W& w, double value)
{
    w.real(value);
}
template <class W>
void encodeValue(W& w, std::int64_t value)
{
    w.integer(value);
}

template <class W, class T>
void encodeValue(W& w, const std::vector<T>& values);
template <class W, Record R>
void encodeValue(W& w, const R& record);

template <class W, class T>
void encodeValue(W& w, const std::vector<T>& values)
{
    w.beginArray(values.size());
    for (const T& value : values)
        encodeValue(w, value);
    w.endArray();
}

template <class T>
bool isPresent(const T&)
{
    return true;
}
template <class T>
bool isPresent(const std::optional<T>& v)
{
    return v.has_value();
}
template <class T>
bool isPresent(const boxed<T>& v)
{
    return v.has_value();
}

template <class T>
const T& presentValue(const T& v)
{
    return v;
}
template <class T>
const T& presentValue(const std::optional<T>& v)
{
    return *v;
}
template <class T>
const T& presentValue(const boxed<T>& v)
{
    return *v;
}

// Field indexes of `R` ordered by key, the order in which dictionaries are written.
template <Record R>
constexpr auto sortedFieldOrder()
{
    constexpr auto fields = R::fields();
    std::array<std::string_view, fieldCount<R>> keys{};
    std::size_t i = 0;
    fields.apply([&](const auto&... field) { ((keys[i++] = field.key), ...); });
    std::array<std::size_t, fieldCount<R>> order{};
    for (std::size_t j = 0; j < order.size(); ++j)
        order[j] = j;
    std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) { return keys[a] < keys[b]; });
    return order;
}

template <class W, Record R, std::size_t... I>
void encodeFieldsSorted(W& w, const R& record, std::index_sequence<I...>)
{
    static constexpr auto order = sortedFieldOrder<R>();
    static constexpr auto fields = R::fields();
    const auto encodeField = [&](const auto& field) {
        const auto& member = record.*(field.member);
        if (isPresent(member)) {
            w.key(field.key);
            encodeValue(w, presentValue(member));
        }
    };
    (encodeField(fields.template get<order[I]>()), ...);
}

template <class W, Record R>
void encodeValue(W& w, const R& record)
{
    std::size_t present = 0;
    forEachField<R>([&](const auto& field) { present += isPresent(record.*(field.member)); });
    w.beginDict(present);
    encodeFieldsSorted(w, record, std::make_index_sequence<fieldCount<R>>{});
    w.endDict();
}

template <class W, Record T>
std::string encodeWith(const std::vector<T>& records)
{
    W writer;
    encodeValue(writer, records);
    return writer.finish();
}

} // namespace

template <Record T>
std::string encodeRecordList(const std::vector<T>& records, PlistFormat format)
{
    if (format == PlistFormat::binary)
        return encodeWith<BinaryWriter>(records);
    return encodeWith<XmlWriter>(records);
}

template std::string encodeRecordList<Level>(const std::vector<Level>&, PlistFormat);
template std::string encodeRecordList<Obstacle>(const std::vector<Obstacle>&, PlistFormat);
template std::string encodeRecordList<Character>(const std::vector<Character>&, PlistFormat);
template std::string encodeRecordList<GenericObject>(const std::vector<GenericObject>&, PlistFormat);
template std::string encodeRecordList<LoadedConfig>(const std::vector<LoadedConfig>&, PlistFormat);
template std::string encodeRecordList<TitleSceneConfig>(const std::vector<TitleSceneConfig>&, PlistFormat);

} // namespace tessaro
