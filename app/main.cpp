#include "app/tarvolt_app.h"

#include <QQmlExtensionPlugin>

Q_IMPORT_QML_PLUGIN(TarvoltPlugin)

int main(int argc, char** argv) {
    return tarvolt::TarvoltApp(argc, argv).run();
}
