// What all archive objects share: the question for a password.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

/// No more password questions for this extraction: set by an empty answer, cleared when ExtraireArchive begins.
extern bool MotDePasseAbandonne;

/// Asks for a password, its first 256 characters; nothing when none is given or MotDePasseAbandonne is set.
std::optional<QString> QuestionMotDePasse();

/// The bytes that a password may stand for, most likely first: Windows-1252, then UTF-8 where it differs.
QList<QByteArray> OctetsDuMotDePasse(const QString& motDePasse);
