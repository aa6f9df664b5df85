// The error of a property list that cannot be decoded or encoded.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace tessaro {

class CodingError : public std::runtime_error {
public:
    explicit CodingError(const std::string& message) : std::runtime_error(message), message_(message) {}

    /// Records that the error happened inside `component` (a key or "[index]").
    void addPathComponent(std::string component) { reversedPath_.push_back(std::move(component)); }

    /// "message (at [0].settings.scaleMode)".
    std::string description() const
    {
        if (reversedPath_.empty())
            return message_;
        std::string path;
        for (auto it = reversedPath_.rbegin(); it != reversedPath_.rend(); ++it) {
            if (!path.empty() && (*it)[0] != '[')
                path += '.';
            path += *it;
        }
        return message_ + " (at " + path + ")";
    }

private:
    std::string message_;
    std::vector<std::string> reversedPath_;
};

} // namespace tessaro
