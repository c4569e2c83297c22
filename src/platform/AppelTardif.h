// Members of an object called by name, as they are found at run time.
#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <initializer_list>
#include <optional>

/// An argument: where its value lies, and its type. A member may take it by value or by reference; one that takes it by
/// reference may change it.
struct ArgumentTardif
{
    ArgumentTardif(QString& texte) : valeur(&texte), type(QMetaType::fromType<QString>()) {}
    ArgumentTardif(QObject*& objet) : valeur(&objet), type(QMetaType::fromType<QObject*>()) {}
    ArgumentTardif(int& nombre) : valeur(&nombre), type(QMetaType::fromType<int>()) {}

    void* valeur;
    QMetaType type;
};

/// Why a call failed, in words for the user; empty when it did not.
using EchecTardif = QString;

/// Calls the method `nom` of `objet`. A method that is missing or takes other arguments, and what it throws, is a
/// failure.
EchecTardif AppelerTardif(QObject& objet, const char* nom, std::initializer_list<ArgumentTardif> arguments = {});

/// The property `nom` as a text, which it may also hold as a number; nothing when it is missing, of another type or
/// throws.
std::optional<QString> LireTardif(const QObject& objet, const char* nom);
