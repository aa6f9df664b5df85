// Collects the diagnostic lines written while it lives.
#pragma once

#include <tessaro/model/Diagnostics.h>

#include <algorithm>
#include <string>
#include <vector>

namespace testing_support {

class DiagnosticCapture {
public:
    DiagnosticCapture()
    {
        previous_ = tessaro::setDiagnosticSink([this](std::string_view line) { lines_.emplace_back(line); });
    }
    ~DiagnosticCapture() { tessaro::setDiagnosticSink(previous_); }

    const std::vector<std::string>& lines() const { return lines_; }
    bool contains(const std::string& fragment) const
    {
        return std::any_of(lines_.begin(), lines_.end(),
                           [&](const std::string& line) { return line.find(fragment) != std::string::npos; });
    }
    bool anyStartsWith(const std::string& prefix) const
    {
        return std::any_of(lines_.begin(), lines_.end(),
                           [&](const std::string& line) { return line.rfind(prefix, 0) == 0; });
    }

private:
    tessaro::DiagnosticSink previous_;
    std::vector<std::string> lines_;
};

} // namespace testing_support
