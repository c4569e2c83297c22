// Where the project has its pages.
#pragma once

#include <QString>

/// The project's home page. Who distributes the program puts an own one here.
inline const QString PageDAccueil = QStringLiteral("https://zelvane.example/");
