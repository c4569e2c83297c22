// The kit for plug-ins of Zelvane: all that one needs beside Qt Core. See docs/plugins.md.
#pragma once

#include <QMetaObject>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <memory>

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

/// A new object that the program supplies: "QrtScript", "QRTWebScript" or "QrtTextes". Owned by the caller; null
/// elsewhere.
inline QObject* Creer(const char* nom)
{
    const ZelvaneRegistre* registre = ZelvaneRegistreDuProgramme;
    return registre ? registre->creer(registre->contexte, nom) : nullptr;
}

/// A text for the user in the language that the program speaks: that of the key in its language file, or `defaut`. The
/// keys of all plug-ins stand together; one of a plug-in begins with "plug" and its name.
inline QString LangMsg(const QString& cle, const QString& defaut)
{
    const std::unique_ptr<QObject> textes(Creer("QrtTextes"));
    QString texte;
    if (!textes || !QMetaObject::invokeMethod(textes.get(), "LangMsg", Q_RETURN_ARG(QString, texte),
                                              Q_ARG(QString, cle), Q_ARG(QString, defaut)))
        return defaut;
    return texte;
}

/// Copies an image file (gif, jpg, jpeg, bmp or png) into the folder of the document's images, and returns the name
/// that it has there, for an entry's image: its own, behind a number where that is taken. Empty when it is no such
/// file, or cannot be copied.
inline QString AjouterImage(QObject* document, const QString& chemin)
{
    QString nom;
    if (document)
        QMetaObject::invokeMethod(document, "AjouterImage", Q_RETURN_ARG(QString, nom), Q_ARG(QString, chemin));
    return nom;
}

/// For openFile: the user has changed his mind. The new document goes without a word once openFile is back.
inline void Abandonner(QObject* document)
{
    if (document)
        QMetaObject::invokeMethod(document, "Abandonner");
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
    /// The images of the same rows, a bare file name in TmpFolder or an empty text each.
    QStringList LireImages(int premiere, int nombre) const
    {
        QStringList images;
        if (m_table)
            QMetaObject::invokeMethod(m_table, "LireImages", Q_RETURN_ARG(QStringList, images), Q_ARG(int, premiere),
                                      Q_ARG(int, nombre));
        return images;
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
    /// Gives the entries from `premiere` on these images. False, with nothing written, where there are not as many.
    bool EcrireImages(int premiere, const QStringList& images)
    {
        bool fait = false;
        return m_table &&
               QMetaObject::invokeMethod(m_table, "EcrireImages", Q_RETURN_ARG(bool, fait), Q_ARG(int, premiere),
                                         Q_ARG(QStringList, images)) &&
               fait;
    }
    /// Removes rows in one pass, and nothing else; positions that name nothing are passed over.
    void RetirerLignes(const QList<int>& positions)
    {
        if (m_table)
            QMetaObject::invokeMethod(m_table, "RetirerLignes", Q_ARG(QList<int>, positions));
    }
    /// The cells of some columns only, in the order in which they are named. Nothing where one of them is missing.
    QStringList LireColonnes(const QList<int>& colonnes, int premiere, int nombre) const
    {
        QStringList cellules;
        if (m_table)
            QMetaObject::invokeMethod(m_table, "LireColonnes", Q_RETURN_ARG(QStringList, cellules),
                                      Q_ARG(QList<int>, colonnes), Q_ARG(int, premiere), Q_ARG(int, nombre));
        return cellules;
    }
    /// Deletes entries for the user, as the program's own command does: he is asked about each image that no other
    /// entry has, and the document is to be saved. Returns how many there were; positions that name nothing are passed
    /// over.
    int SupprimerLignes(const QList<int>& positions)
    {
        int nombre = 0;
        if (m_table)
            QMetaObject::invokeMethod(m_table, "SupprimerLignes", Q_RETURN_ARG(int, nombre),
                                      Q_ARG(QList<int>, positions));
        return nombre;
    }

private:
    int Nombre(const char* nom) const { return m_table ? m_table->property(nom).toInt() : 0; }

    QObject* m_table;
};

} // namespace zelvane
