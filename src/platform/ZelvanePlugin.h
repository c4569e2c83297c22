// The kit for plug-ins of Zelvane: all that one needs beside Qt Core. See docs/plugins.md.
#pragma once

#include <QMetaObject>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariant>

/// What the program hands a library before it runs DllRegisterServer. Members are only ever added at the end.
struct ZelvaneRegistre
{
    int taille; ///< of this structure in the program
    void* contexte;
    /// Registers an object by name; a later one of the same name takes its place.
    void (*inscrire)(void* contexte, const char* nom, QObject* (*fabrique)());
    /// A new object of the program or of another plug-in, owned by the caller; null when there is none of the name.
    QObject* (*creer)(void* contexte, const char* nom);
};

extern "C" Q_DECL_EXPORT const ZelvaneRegistre* ZelvaneRegistreDuProgramme;

/// By this mark the program knows a library for one of its plug-ins, and for which Qt it was built, before it loads it.
#define ZELVANE_MARQUE "ZelvanePlugin;interface=1;qt=" QT_VERSION_STR ";"

/// The exports of a library without an object.
#define ZELVANE_BIBLIOTHEQUE                                                                                           \
    const ZelvaneRegistre* ZelvaneRegistreDuProgramme = nullptr;                                                       \
    extern "C" {                                                                                                       \
    extern Q_DECL_EXPORT const char ZelvaneMarque[];                                                                   \
    const char ZelvaneMarque[] = ZELVANE_MARQUE;                                                                       \
    }

/// The exports of a library Nom.dll that supplies the class `Classe`, which needs Q_OBJECT and a constructor without
/// arguments. Once in a library.
#define ZELVANE_PLUGIN(Nom, Classe)                                                                                    \
    ZELVANE_BIBLIOTHEQUE                                                                                               \
    extern "C" Q_DECL_EXPORT int DllRegisterServer()                                                                   \
    {                                                                                                                  \
        if (!ZelvaneRegistreDuProgramme)                                                                               \
            return -1;                                                                                                 \
        ZelvaneRegistreDuProgramme->inscrire(ZelvaneRegistreDuProgramme->contexte, "PlugQRT." Nom,                     \
                                             []() -> QObject* { return new (Classe); });                               \
        return 0;                                                                                                      \
    }                                                                                                                  \
    extern "C" Q_DECL_EXPORT int DllUnregisterServer()                                                                 \
    {                                                                                                                  \
        return 0;                                                                                                      \
    }

namespace zelvane {

/// A new object that the program supplies: "QrtScript" or "QRTWebScript". Owned by the caller; null elsewhere.
inline QObject* Creer(const char* nom)
{
    const ZelvaneRegistre* registre = ZelvaneRegistreDuProgramme;
    return registre ? registre->creer(registre->contexte, nom) : nullptr;
}

/// The table of a document, whole rows at a time: a million rows cost seconds so, and minutes one cell at a time. Rows
/// and columns count from 1. Cells stand row by row, as many of each row as the table has columns.
class Table
{
public:
    explicit Table(QObject* document) : m_table(document ? document->property("MyLV").value<QObject*>() : nullptr) {}

    int Colonnes() const { return Nombre("ColonnesCount"); }
    int Lignes() const { return Nombre("LignesCount"); }
    QStringList Titres() const { return m_table ? m_table->property("Titres").toStringList() : QStringList(); }
    /// Adds columns at the end.
    bool AjouterColonnes(const QStringList& titres)
    {
        bool fait = false;
        return m_table &&
               QMetaObject::invokeMethod(m_table, "AjouterColonnes", Q_RETURN_ARG(bool, fait),
                                         Q_ARG(QStringList, titres)) &&
               fait;
    }
    /// Adds rows at the end. False, with nothing added, when the cells are no whole rows.
    bool AjouterLignes(const QStringList& cellules)
    {
        bool fait = false;
        return m_table &&
               QMetaObject::invokeMethod(m_table, "AjouterLignes", Q_RETURN_ARG(bool, fait),
                                         Q_ARG(QStringList, cellules)) &&
               fait;
    }
    /// The cells of `nombre` rows from `premiere` on; fewer where the table ends.
    QStringList LireLignes(int premiere, int nombre) const
    {
        QStringList cellules;
        if (m_table)
            QMetaObject::invokeMethod(m_table, "LireLignes", Q_RETURN_ARG(QStringList, cellules), Q_ARG(int, premiere),
                                      Q_ARG(int, nombre));
        return cellules;
    }
    /// Writes whole rows over those from `premiere` on. False, with nothing written, where there are none.
    bool EcrireLignes(int premiere, const QStringList& cellules)
    {
        bool fait = false;
        return m_table &&
               QMetaObject::invokeMethod(m_table, "EcrireLignes", Q_RETURN_ARG(bool, fait), Q_ARG(int, premiere),
                                         Q_ARG(QStringList, cellules)) &&
               fait;
    }
    /// Removes rows in one pass; positions that name nothing are passed over.
    void RetirerLignes(const QList<int>& positions)
    {
        if (m_table)
            QMetaObject::invokeMethod(m_table, "RetirerLignes", Q_ARG(QList<int>, positions));
    }

private:
    int Nombre(const char* nom) const { return m_table ? m_table->property(nom).toInt() : 0; }

    QObject* m_table;
};

} // namespace zelvane
