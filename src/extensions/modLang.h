// Messages and languages: every text shown is looked up here, and recorded in lang/default.ini when it is not found.
#pragma once

#include "base/Message.h"

#include <QString>
#include <QStringList>

/// Full path of the current language file; empty when there is none and the program speaks French.
extern QString FichierLangue;

/// The text of message `cle` in the language in force, or `defaut`, which is then recorded for translators.
Message LangMsg(const QString& cle, const QString& defaut);
