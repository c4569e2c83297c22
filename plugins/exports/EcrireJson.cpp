#include "EcrireJson.h"

#include "Brouillon.h"
#include "TexteUtf8.h"

#include <QHash>
#include <QSet>

namespace {

constexpr qsizetype TailleDeMorceau = 256 * 1024;
const QString s_cleDImage = QStringLiteral("image");

QByteArray EnJson(QStringView texte)
{
    QByteArray json;
    AjouterJson(json, texte);
    return json;
}

QByteArray CleOuNull(const QStringList& cles, int colonne)
{
    return colonne > 0 ? EnJson(cles.at(colonne - 1)) : QByteArray("null");
}

QByteArray Entete(const TableExportee& contenu, const QStringList& cles)
{
    QByteArray json =
        "{\n\"format\": \"zelvane\",\n\"version\": 1,\n\"titre\": " + EnJson(contenu.Nom()) + ",\n\"colonnes\": [";
    for (int i = 0; i < contenu.Colonnes(); ++i) {
        json += i > 0 ? ",\n" : "\n";
        json += "{\"cle\": " + EnJson(cles.at(i)) + ", \"titre\": " + EnJson(contenu.Titres().at(i)) + '}';
    }
    json += "\n],\n\"colonnePrete\": " + CleOuNull(cles, contenu.ColonnePrete());
    json += ",\n\"colonneDependante\": " + CleOuNull(cles, contenu.ColonneDependante());
    json += ",\n\"nombre\": " + QByteArray::number(contenu.Lignes()) + ",\n\"entrees\": [";
    return json;
}

/// The text before each value of an entry: a comma where one is needed, and the key.
QByteArrayList DebutsDesValeurs(const QStringList& cles)
{
    QByteArrayList debuts;
    debuts.reserve(cles.size() + 1);
    for (const QString& cle : cles)
        debuts.append((debuts.isEmpty() ? QByteArray() : QByteArray(", ")) + EnJson(cle) + ": ");
    debuts.append((debuts.isEmpty() ? QByteArray() : QByteArray(", ")) + EnJson(s_cleDImage) + ": ");
    return debuts;
}

/// The entries of a packet, a line each.
class Entrees
{
public:
    Entrees(Brouillon& brouillon, const QStringList& cles) : m_brouillon(brouillon), m_debuts(DebutsDesValeurs(cles)) {}

    QByteArray& Morceau() { return m_morceau; }
    Fin Ecrire(const TableExportee::Paquet& paquet)
    {
        const qsizetype colonnes = m_debuts.size() - 1;
        for (int ligne = 0; ligne < paquet.lignes; ++ligne) {
            m_morceau += m_premiere ? "\n{" : ",\n{";
            m_premiere = false;
            for (qsizetype i = 0; i < colonnes; ++i)
                Ajouter(i, paquet.cellules.at(ligne * colonnes + i));
            if (const QString& image = paquet.images.at(ligne); !image.isEmpty())
                Ajouter(colonnes, image);
            m_morceau += '}';
            if (m_morceau.size() < TailleDeMorceau)
                continue;
            if (const Fin fin = Vider(); fin != Fin::Faite)
                return fin;
        }
        return Fin::Faite;
    }
    Fin Vider()
    {
        const Fin fin = m_brouillon.Ecrire(m_morceau);
        m_morceau.resize(0); // its room stays
        return fin;
    }

private:
    void Ajouter(qsizetype rang, const QString& valeur)
    {
        m_morceau += m_debuts.at(rang);
        AjouterJson(m_morceau, valeur);
    }

    Brouillon& m_brouillon;
    QByteArrayList m_debuts;
    QByteArray m_morceau;
    bool m_premiere = true;
};

Fin EcrireTout(const TableExportee& contenu, Brouillon& brouillon, Progression& progression)
{
    const QStringList cles = ClesDesColonnes(contenu.Titres());
    Entrees entrees(brouillon, cles);
    entrees.Morceau().reserve(2 * TailleDeMorceau);
    entrees.Morceau() += Entete(contenu, cles);
    for (int ligne = 1; ligne <= contenu.Lignes();) {
        const auto paquet = contenu.Lire(ligne);
        if (!paquet)
            return Fin::TableChangee;
        if (const Fin fin = entrees.Ecrire(*paquet); fin != Fin::Faite)
            return fin;
        ligne += paquet->lignes;
        if (!progression.Avancer(ligne - 1, contenu.Lignes()))
            return Fin::Abandonnee;
    }
    entrees.Morceau() += "\n]\n}\n";
    return entrees.Vider();
}

} // namespace

QStringList ClesDesColonnes(const QStringList& titres)
{
    QSet<QString> prises(titres.begin(), titres.end());
    QSet<QString> donnees{s_cleDImage};
    QHash<QString, int> dernieres;
    QStringList cles;
    cles.reserve(titres.size());
    for (qsizetype i = 0; i < titres.size(); ++i) {
        const QString& titre = titres.at(i);
        const QString base = titre.isEmpty() ? QStringLiteral("colonne %1").arg(i + 1) : titre;
        QString cle = base;
        const auto libre = [&] { return !donnees.contains(cle) && (cle == titre || !prises.contains(cle)); };
        for (int& numero = dernieres[base]; !libre(); ++numero)
            cle = QStringLiteral("%1 (%2)").arg(base).arg(numero + 2);
        donnees.insert(cle);
        cles.append(cle);
    }
    return cles;
}

Fin EcrireJson(const TableExportee& contenu, const QString& chemin, Progression& progression)
{
    Brouillon brouillon(chemin);
    Fin fin = brouillon.Ouvrir();
    if (fin == Fin::Faite)
        fin = EcrireTout(contenu, brouillon, progression);
    return fin == Fin::Faite ? brouillon.Deposer() : fin;
}
