#include "ImportCsv.h"

#include <QFileInfo>

#include <utility>

using namespace Qt::StringLiterals;
using zelvane::LangMsg;

namespace {

constexpr int LignesALaFois = 4096;

} // namespace

QString RaisonDe(const LigneSignalee& ligne)
{
    QStringList raisons;
    if (ligne.defauts & TropPeuDeChamps)
        raisons.append(LangMsg(u"plugCsvTropPeu"_s, u"trop peu de valeurs"_s));
    if (ligne.defauts & TropDeChamps)
        raisons.append(LangMsg(u"plugCsvTrop"_s, u"trop de valeurs"_s));
    if (ligne.defauts & GuillemetOuvert)
        raisons.append(LangMsg(u"plugCsvGuillemetOuvert"_s, u"guillemet jamais fermé"_s));
    if (ligne.defauts & TexteApresGuillemet)
        raisons.append(LangMsg(u"plugCsvApresGuillemet"_s, u"texte après un guillemet fermant"_s));
    if (ligne.defauts & LigneCoupee)
        raisons.append(LangMsg(u"plugCsvCoupee"_s, u"ligne trop longue, coupée"_s));
    if (!ligne.image.isEmpty())
        raisons.append(LangMsg(u"plugCsvImageAbsente"_s, u"image introuvable : %1"_s).arg(ligne.image));
    return raisons.join(u", "_s);
}

ImportCsv::ImportCsv(QIODevice& texte, PlanCsv plan, QString dossier, QObject* document)
    : m_plan(std::move(plan)), m_dossier(std::move(dossier)), m_document(document), m_table(document),
      m_lecteur(texte, m_plan.format, m_plan.colonnes.size())
{
    QStringList titres;
    titres.reserve(m_plan.colonnes.size());
    for (qsizetype i = 0; i < m_plan.colonnes.size(); ++i) {
        if (m_plan.colonnes[i].usage == UsageCsv::Image)
            m_colonneImage = i;
        if (m_plan.colonnes[i].usage != UsageCsv::Prendre)
            continue;
        m_prises.append(i);
        titres.append(TitreTenable(m_plan.colonnes[i].titre));
    }
    m_refuse = titres.isEmpty() || !m_table.AjouterColonnes(titres);
    m_cellules.reserve(LignesALaFois * m_prises.size());
}

bool ImportCsv::Avancer()
{
    LigneCsv ligne;
    int lues = 0;
    while (!m_refuse && lues < LignesALaFois && m_lecteur.Lire(ligne)) {
        ++lues;
        if (ligne.EstVide())
            ++m_bilan.vides;
        else if (m_plan.format.entete && !std::exchange(m_enteteLue, true))
            continue;
        else
            Prendre(ligne);
    }
    m_bilan.illisibles = m_lecteur.Illisibles();
    m_bilan.interrompu = m_lecteur.EstInterrompu();
    m_refuse = m_refuse || !Livrer();
    return !m_refuse && lues == LignesALaFois;
}

void ImportCsv::Prendre(LigneCsv& ligne)
{
    ++m_bilan.lignes;
    const auto position = static_cast<int>(m_livrees + m_cellules.size() / m_prises.size() + 1);
    LigneSignalee signalee{ligne.numero, position, ligne.defauts, QString()};
    if (ligne.nombre < m_plan.colonnes.size())
        signalee.defauts |= TropPeuDeChamps;
    if (ligne.nombre > m_plan.colonnes.size())
        signalee.defauts |= TropDeChamps;
    for (const qsizetype i : std::as_const(m_prises)) {
        m_cellules.append(i < ligne.champs.size() ? std::move(ligne.champs[i]) : QString());
        TenirEnCellule(m_cellules.last(), m_bilan.remplaces);
    }
    if (m_colonneImage >= 0) {
        const QString chemin = ligne.champs.value(m_colonneImage).trimmed();
        m_marques.append(chemin.isEmpty() ? QString() : Image(chemin));
        if (m_marques.constLast().isEmpty())
            signalee.image = chemin;
        else
            ++m_bilan.images;
    }
    if (signalee.defauts != SansDefaut || !signalee.image.isEmpty())
        m_bilan.signalees.push_back(signalee);
}

QString ImportCsv::Image(const QString& chemin)
{
    const QString fichier = FichierDuChemin(chemin, m_dossier);
    if (fichier.isEmpty())
        return {};
    // Whatever the spelling, one file is one image.
    const QString canonique = QFileInfo(fichier).canonicalFilePath();
    auto connue = m_images.constFind(canonique);
    if (connue == m_images.constEnd())
        connue = m_images.insert(canonique, zelvane::AjouterImage(m_document, fichier));
    return *connue;
}

bool ImportCsv::Livrer()
{
    if (m_cellules.isEmpty())
        return true;
    if (!m_table.AjouterLignes(m_cellules))
        return false;
    if (!m_marques.isEmpty() && !m_table.EcrireImages(m_livrees + 1, m_marques))
        return false;
    m_livrees += static_cast<int>(m_cellules.size() / m_prises.size());
    m_cellules.clear();
    m_marques.clear();
    return true;
}

void ImportCsv::RetirerDefectueuses()
{
    QList<int> positions;
    for (const LigneSignalee& ligne : m_bilan.signalees) {
        if (ligne.defauts != SansDefaut)
            positions.append(ligne.position);
    }
    m_table.RetirerLignes(positions);
}
