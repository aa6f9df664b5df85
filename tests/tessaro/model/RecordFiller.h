// Fills every field of a record, nested records and lists included, with
// values that differ from field to field, so a round trip covers them all.
#pragma once

#include <tessaro/model/Fields.h>
#include <tessaro/model/Uuid.h>

#include <cstdint>
#include <string>
#include <vector>

namespace testing_support {

class RecordFiller {
public:
    template <tessaro::Record R>
    R filled(int depth = 0)
    {
        R record{};
        tessaro::forEachField<R>(
            [&](const auto& field) { fill(record.*(field.member), std::string(field.key), depth); });
        return record;
    }

private:
    void fill(std::string& v, const std::string& key, int) { v = key + " <&> \"text\" " + std::to_string(++counter_); }
    void fill(double& v, const std::string&, int) { v = 0.25 + ++counter_; }
    void fill(std::int64_t& v, const std::string&, int) { v = -1000 + ++counter_; }
    void fill(bool& v, const std::string&, int) { v = ++counter_ % 2 == 0; }
    void fill(tessaro::Uuid& v, const std::string&, int) { v = tessaro::Uuid::create(); }
    template <class T>
    void fill(std::optional<T>& v, const std::string& key, int depth)
    {
        fill(v.emplace(), key, depth);
    }
    template <class T>
    void fill(tessaro::boxed<T>& v, const std::string& key, int depth)
    {
        fill(v.emplace(), key, depth);
    }
    template <class T>
    void fill(std::vector<T>& v, const std::string& key, int depth)
    {
        // Two entries near the top, one deeper down, none at the bottom, so
        // an empty list is covered too and the record stays small.
        const int entries = depth < 2 ? 2 : depth < 5 ? 1 : 0;
        v.resize(static_cast<std::size_t>(entries));
        for (T& entry : v)
            fill(entry, key, depth + 1);
    }
    template <tessaro::Record R>
    void fill(R& v, const std::string&, int depth)
    {
        v = filled<R>(depth + 1);
    }

    int counter_ = 0;
};

} // namespace testing_support
