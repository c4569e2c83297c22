// Plug-ins: shared objects "*.dll" in the folder "plugins" of the program's folder. Nothing about them is kept: who
// needs them lists the folder and registers each library again.
#pragma once

#include "images/Bibliotheque.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

class FaceDocument;
class QrtClass;

/// How long a library's entry point may take, in milliseconds, before the program ends with it.
constexpr int DelaiDEnregistrement = 10000;

/// The names of the files that may be plug-ins, sorted; none where there is no folder.
QStringList FichiersDePlugins();
/// The full path of such a file.
QString CheminDuPlugin(const QString& fichier);
/// A file's name without its last four characters: the object's name behind "PlugQRT.".
QString NomDObjet(const QString& fichier);
/// A file's name up to its last point, which the user sees.
QString NomDePlugin(const QString& fichier);

/// Runs DllRegisterServer of a library, or DllUnregisterServer. True when it ran to its end in time; false, without a
/// message, when the library cannot be loaded, has no such export or throws. When it is not back in time, the process
/// ends.
bool EnregistrerDll(const QString& chemin, bool enregistrer);

/// Whether the object of that base name says that it is a command, opens files or exports. False for any failure.
bool PluginEstAutre(const QString& nom);
bool PluginEstOuvreur(const QString& nom);
bool PluginEstExporteur(const QString& nom);

/// A plug-in that adds a type to a file dialog.
struct TypeDePlugin
{
    QString nom;
    QString filtre; ///< one label and one pattern, with "|" between them
};
/// Registers all of the folder, and tells which of it opens or exports. One whose filter is no such pair is passed
/// over: it would move the types of those behind it.
QList<TypeDePlugin> TypesDOuverture();
QList<TypeDePlugin> TypesDExport();

/// One object at work on a document. Every failure is told ("msgPluginEchec").
class PluginAuTravail
{
public:
    /// How initme gets the document.
    enum class Passage { ParValeur, ParReference };

    /// Makes the object of that name.
    explicit PluginAuTravail(const QString& nom);
    ~PluginAuTravail();
    PluginAuTravail(const PluginAuTravail&) = delete;
    PluginAuTravail& operator=(const PluginAuTravail&) = delete;

    /// Whom to ask, from initme on, before an image is deleted with its entry.
    void DemanderPourImages(const QuestionSupprImg& question) { m_question = question; }
    /// Hands over the document and the handle of its window (0: none). By reference the plug-in may put another object
    /// in the document's place, which Document() then is. False when that failed, or there is no object.
    bool initme(QrtClass& doc, int fenetre, Passage passage);
    QObject* Document() const { return m_document; }
    bool showForm();
    bool openFile(const QString& chemin);
    /// The plug-in said so: the user wants no new document after all.
    bool EstAbandonne() const;
    bool ExportToFile(const QString& chemin);

    /// What frmPlugins shows of it; nothing where a property is missing.
    std::optional<QString> APropos() const;

private:
    bool Reussi(const QString& echec) const;
    bool Appeler(const char* membre, const QString& chemin);

    QString m_nom;
    QuestionSupprImg m_question;
    std::unique_ptr<FaceDocument> m_document0; ///< the program's face of the document
    QObject* m_document = nullptr;
    std::unique_ptr<QObject> m_objet; // goes before the face that it knows
};
