"""Plants each kind of wrong include in a small tree and checks that it is found and that correct ones are accepted."""

import tempfile
import unittest
from pathlib import Path

import includes


class Includes(unittest.TestCase):
    def faults(self, **files):
        """The faults of a tree with these files, named with __ for / and _h for .h."""
        with tempfile.TemporaryDirectory() as folder:
            root = Path(folder)
            for name, text in files.items():
                path = root / name.replace("__", "/").replace("_h", ".h").replace("_cpp", ".cpp")
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_text(text)
            return includes.faults(root)[1]

    def assertFault(self, expected, **files):
        self.assertEqual(self.faults(**files), [expected])

    def testAllowsWhatPointsToTheLeft(self):
        self.assertEqual(
            self.faults(
                foundation__text_h="#include <string_view>\n#include <unicode/ucol.h>\n#include <sys/stat.h>\n",
                model__scan_h='#pragma once\n#include "foundation/text.h"\n#include <cstdint>\n',
                rename__rules_cpp='#include "model/scan.h"\n  #  include "foundation/text.h"\n',
                app__view_h='#include "rename/rules.cpp"\n',
                app__sections__row_h='#include "app/view.h"\n',
                app__bridge__facade_h='#include "app/view.h"\n#include <QObject>\n#include <QtQml/qqml.h>\n',
                app__drawing__box_h='#include "app/drawing/shape.h"\n#include <QColor>\n',
                app__drawing__shape_h="#include <QImage>\n",
                app__tarvolt_app_h='#include "app/bridge/facade.h"\n#include <QApplication>\n',
                app__tarvolt_app_cpp='#include "app/tarvolt_app.h"\n#include "app/drawing/box.h"\n',
                app__main_cpp='#include "app/tarvolt_app.h"\n#include <QApplication>\n',
                tests__free_cpp='#include <anything/at.all>\n#include "free.h"\n',
            ),
            [],
        )

    def testFindsAnIncludeThatPointsToTheRight(self):
        self.assertFault(
            'foundation/a.h:2: #include "model/b.h" points from foundation to model',
            foundation__a_h='\n#include "model/b.h"\n',
            model__b_h="",
        )
        self.assertFault(
            'app/sections/a.h:1: #include "app/bridge/b.h" points from app to app/bridge',
            app__sections__a_h='#include "app/bridge/b.h"\n',
            app__bridge__b_h="",
        )
        self.assertFault(
            'app/bridge/a.cpp:1: #include "app/main.cpp" points from app/bridge to app/main',
            app__bridge__a_cpp='#include "app/main.cpp"\n',
            app__main_cpp="",
        )
        self.assertFault(
            'app/a.cpp:1: #include "app/tarvolt_app.h" points from app to app/tarvolt_app',
            app__a_cpp='#include "app/tarvolt_app.h"\n',
            app__tarvolt_app_h="",
        )

    def testFindsThatBridgeAndDrawingKnowEachOther(self):
        for here, there in (("bridge", "drawing"), ("drawing", "bridge")):
            self.assertFault(
                f'app/{here}/a.h:1: #include "app/{there}/b.h" points from app/{here} to app/{there}',
                **{f"app__{here}__a_h": f'#include "app/{there}/b.h"\n', f"app__{there}__b_h": ""},
            )

    def testFindsTheToolkitLeftOfTheBridge(self):
        for header in ("QString", "QtCore/QString", "QtGlobal", "QtCore/qglobal.h"):
            self.assertFault(
                f"app/a.cpp:1: #include <{header}> brings the toolkit into app", app__a_cpp=f"#include <{header}>\n"
            )
        self.assertFault(
            "model/a.h:1: # include <QUuid> brings the toolkit into model", model__a_h="# include <QUuid>\n"
        )

    def testFindsTheSystemAndICUOutsideTheFoundation(self):
        for header in ("unistd.h", "sys/stat.h", "linux/fs.h", "unicode/unistr.h", "stdlib.h"):
            for place in ("rename__a_cpp", "app__bridge__a_cpp"):
                faults = self.faults(**{place: f"#include <{header}>\n"})
                self.assertEqual(len(faults), 1, header)
                self.assertIn("brings the system or ICU into", faults[0])

    def testFindsIncludesThatDoNotStartAtTheRoot(self):
        self.assertFault(
            'model/a.cpp:1: #include "a.h" is not written from the project\'s root',
            model__a_cpp='#include "a.h"\n',
            model__a_h="",
        )

    def testFindsIncludesOutOfTheLayers(self):
        self.assertFault(
            'model/a.cpp:1: #include "tests/fake.h" points out of the layers',
            model__a_cpp='#include "tests/fake.h"\n',
            tests__fake_h="",
        )
        self.assertFault("model/a.cpp:1: #include HEADER names no file", model__a_cpp="#include HEADER\n")
        self.assertFault(
            "model/a.cpp:1: #include <boost/uuid.hpp> is no header that any layer may include",
            model__a_cpp="#include <boost/uuid.hpp>\n",
        )


if __name__ == "__main__":
    unittest.main()
