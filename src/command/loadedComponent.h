// The component with the windows, loaded at run time as any host loads it, so that a command
// without a window starts no toolkit.
#pragma once

#include <stdexcept>
#include <string>

namespace tavisk {

/// Says in one line why the component cannot be loaded.
class ComponentMissing : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

class Component {
public:
    /// Looks beside the command, then in "../lib", then where the system keeps libraries.
    Component();

    /// The document as the user left it. No NUL may be inside. Throws Rejected when the user has
    /// been told in a window why it is no document.
    std::string editXML(const std::string& xml) const;
    void previewXML(const std::string& xml, bool evaluateFormula) const;

private:
    struct Functions {
        int (*edit)(const char*, char**, char**);
        int (*preview)(const char*, int, char**);
        void (*free)(void*);
    };

    Functions functions_;
};

}  // namespace tavisk
