#include "extensions/plugins/mPlugin.h"

#include "base/AfficherMsg.h"
#include "base/Const_Vrac.h"
#include "base/NomsDuDossier.h"
#include "extensions/langue/modLang.h"
#include "extensions/plugins/FaceDocument.h"
#include "platform/AppelTardif.h"
#include "platform/NomsSysteme.h"
#include "platform/Plateforme.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int LongueurDExtension = 4; // ".dll"

QString DossierDesPlugins()
{
    return plateforme().dossierProgramme + u"plugins/"_s;
}

std::unique_ptr<QObject> CreerPlugin(const QString& nom)
{
    return plateforme().composants ? plateforme().composants->Creer(u"PlugQRT."_s + nom) : nullptr;
}

bool PluginEst(const QString& nom, const QString& mot)
{
    const std::unique_ptr<QObject> objet = CreerPlugin(nom);
    QString genres;
    return objet && AppelerTardif(*objet, "WhatIsIt", {genres}).isEmpty() && genres.contains(mot);
}

/// A label and a pattern.
bool EstUnType(const QString& filtre)
{
    return filtre.count(u'|') == 1 && !filtre.startsWith(u'|') && !filtre.endsWith(u'|');
}

QList<TypeDePlugin> Types(bool (*est)(const QString&), const char* propriete)
{
    QList<TypeDePlugin> types;
    for (const QString& fichier : FichiersDePlugins()) {
        EnregistrerDll(CheminDuPlugin(fichier), true);
        if (!est(NomDObjet(fichier)))
            continue;
        const std::unique_ptr<QObject> objet = CreerPlugin(NomDObjet(fichier));
        const auto filtre = objet ? LireTardif(*objet, propriete) : std::nullopt;
        if (filtre && EstUnType(*filtre))
            types.append({NomDePlugin(fichier), *filtre});
    }
    return types;
}

} // namespace

QStringList FichiersDePlugins()
{
    QStringList fichiers = FichiersDuDossier(DossierDesPlugins()).value_or(QStringList());
    fichiers.removeIf([](const QString& nom) { return !nom.endsWith(".dll"_L1) || nom.size() == LongueurDExtension; });
    fichiers.sort();
    return fichiers;
}

QString CheminDuPlugin(const QString& fichier)
{
    return DossierDesPlugins() + fichier;
}

QString NomDObjet(const QString& fichier)
{
    return fichier.chopped(LongueurDExtension);
}

QString NomDePlugin(const QString& fichier)
{
    return fichier.left(fichier.lastIndexOf(u'.'));
}

bool EnregistrerDll(const QString& chemin, bool enregistrer)
{
    Composants* composants = plateforme().composants;
    void* bibliotheque = composants ? composants->Charger(chemin) : nullptr;
    if (!bibliotheque)
        return false;
    const auto entree = composants->Chercher(bibliotheque, enregistrer ? "DllRegisterServer" : "DllUnregisterServer");
    Composants::Fin fin = Composants::Fin::Levee;
    if (entree) {
        fin = composants->Executer(bibliotheque, entree, DelaiDEnregistrement);
        if (fin == Composants::Fin::EnCours)
            composants->FinirLeProcessus(chemin);
    }
    composants->Liberer(bibliotheque);
    return fin == Composants::Fin::Finie;
}

bool PluginEstAutre(const QString& nom)
{
    return PluginEst(nom, u"other"_s);
}

bool PluginEstOuvreur(const QString& nom)
{
    return PluginEst(nom, u"open"_s);
}

bool PluginEstExporteur(const QString& nom)
{
    return PluginEst(nom, u"export"_s);
}

QList<TypeDePlugin> TypesDOuverture()
{
    return Types(PluginEstOuvreur, "OpenFilter");
}

QList<TypeDePlugin> TypesDExport()
{
    return Types(PluginEstExporteur, "ExportFilter");
}

// ---- an object at work

PluginAuTravail::PluginAuTravail(const QString& nom) : m_nom(nom), m_objet(CreerPlugin(nom)) {}

PluginAuTravail::~PluginAuTravail() = default;

bool PluginAuTravail::Reussi(const QString& echec) const
{
    if (echec.isEmpty())
        return true;
    const Message message = LangMsg(u"msgPluginEchec"_s, u"Le plug-in %1 a échoué : %2"_s);
    AfficherMsg(message.Remplacer(u"%1"_s, m_nom).Remplacer(u"%2"_s, echec), MsgOk, QString());
    return false;
}

bool PluginAuTravail::initme(QrtClass& doc, int fenetre, Passage passage)
{
    if (!m_objet)
        return Reussi(u"PlugQRT."_s + m_nom);
    if (!m_document0) {
        auto face = std::make_unique<FaceDocument>(doc);
        face->DemanderPourImages(m_question);
        m_document = face.get();
        m_document0 = std::move(face);
    }
    QObject* document = m_document;
    if (!Reussi(AppelerTardif(*m_objet, "initme", {document, fenetre})))
        return false;
    if (passage == Passage::ParReference)
        m_document = document;
    return true;
}

bool PluginAuTravail::showForm()
{
    return m_objet && Reussi(AppelerTardif(*m_objet, "showForm"));
}

bool PluginAuTravail::openFile(const QString& chemin)
{
    return Appeler("openFile", chemin);
}

bool PluginAuTravail::EstAbandonne() const
{
    return m_document0 && m_document0->EstAbandonne();
}

bool PluginAuTravail::ExportToFile(const QString& chemin)
{
    return Appeler("ExportToFile", chemin);
}

bool PluginAuTravail::Appeler(const char* membre, const QString& chemin)
{
    QString sien = chemin;
    return m_objet && Reussi(AppelerTardif(*m_objet, membre, {sien}));
}

// The labels are in one language. It is meant.
std::optional<QString> PluginAuTravail::APropos() const
{
    struct Ligne
    {
        QStringView avant;
        const char* propriete;
    };
    static constexpr Ligne Lignes[] = {
        {u"", "Name"},
        {u"\r\n\r\nDescription : ", "Description"},
        {u"\r\n\r\nVersion : ", "VersionMajor"},
        {u".", "VersionMinor"},
        {u".", "VersionRevision"},
        {u"\r\n\r\nAuthor : ", "Author"},
        {u"\r\n\r\nWebsite : ", "AuthorUrl"},
        {u"\r\n\r\nEmail : ", "EMail"},
    };
    QString tout;
    for (const Ligne& ligne : Lignes) {
        const auto texte = m_objet ? LireTardif(*m_objet, ligne.propriete) : std::nullopt;
        if (!texte) {
            Reussi(u"%1 ?"_s.arg(QLatin1StringView(ligne.propriete)));
            return std::nullopt;
        }
        tout.append(ligne.avant).append(*texte);
    }
    return tout;
}
