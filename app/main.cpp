#include "app/tarvolt_app.h"

#include <QQmlExtensionPlugin>

#include <cstdlib>
#include <iostream>
#include <optional>
#include <string_view>

Q_IMPORT_QML_PLUGIN(TarvoltPlugin)

namespace {

constexpr int usageError = 2;

constexpr std::string_view help = "Usage: tarvolt [--help | --version]\n"
                                  "\n"
                                  "Opens a window that lists the MPC projects in a folder and renames them.\n"
                                  "\n"
                                  "  --help     show this help and exit\n"
                                  "  --version  show the version and exit\n";

int print(std::string_view text) {
    std::cout << text << std::flush;
    return std::cout ? EXIT_SUCCESS : EXIT_FAILURE;
}

/// Answers the command line. Returns the exit status, or nothing if the window should open. The toolkit's own options
/// are not accepted.
std::optional<int> answer(int argc, char** argv) {
    if (argc < 2) {
        return std::nullopt;
    }
    const std::string_view first = argv[1];
    const bool known = first == "--help" || first == "--version";
    if (!known || argc > 2) {
        std::cerr << "tarvolt: unexpected argument '" << (known ? argv[2] : argv[1]) << "'; try 'tarvolt --help'\n";
        return usageError;
    }
    return print(first == "--help" ? help : "tarvolt " TARVOLT_VERSION "\n");
}

} // namespace

int main(int argc, char** argv) {
    // Before the toolkit starts, which needs a display.
    if (const auto status = answer(argc, argv)) {
        return *status;
    }
    return tarvolt::TarvoltApp(argc, argv).run();
}
