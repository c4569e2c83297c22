#include "base/Const_Vrac.h"

#include "base/Nombres.h"
#include "base/Options.h"
#include "platform/PageDeCode.h"
#include "platform/Plateforme.h"

#include <QFile>

#include <algorithm>

namespace {

const QString s_sectionOptions = QStringLiteral("Options");

bool EstSeparateur(QChar c)
{
    return c == u'/' || c == u'\\';
}

} // namespace

QVariant LireOption(const QString& cle, const QVariant& defaut)
{
    const std::optional<QString> valeur = plateforme().reglages->Lire(s_sectionOptions, cle);
    return valeur ? QVariant(*valeur) : defaut;
}

void EcrireOption(const QString& cle, const QVariant& valeur)
{
    const bool booleen = valeur.typeId() == QMetaType::Bool;
    const QString texte = booleen ? BoolVersTexte(valeur.toBool()) : valeur.toString();
    Reglages& reglages = *plateforme().reglages;
    const bool change = reglages.Lire(s_sectionOptions, cle) != texte;
    reglages.Ecrire(s_sectionOptions, cle, texte);
    if (change)
        DireOptionChangee(cle);
}

std::optional<double> OptionEnNombre(const QVariant& valeur)
{
    if (valeur.typeId() == QMetaType::QString)
        return VersDouble(valeur.toString());
    bool lisible = false;
    const double nombre = valeur.toDouble(&lisible);
    return lisible ? std::optional(nombre) : std::nullopt;
}

bool OptionEgale(const QVariant& valeur, double nombre)
{
    return OptionEnNombre(valeur) == nombre;
}

QString LireIni(const QString& fichier, const QString& section, const QString& cle, const QString& defaut)
{
    return plateforme().ini->Lire(fichier, section, cle).valeur.value_or(defaut);
}

bool EcrireIni(const QString& fichier, const QString& section, const QString& cle, const QString& valeur)
{
    return plateforme().ini->Ecrire(fichier, section, cle, valeur);
}

bool CreerIni(const QString& fichier, const QString& texte)
{
    const QByteArray octets = PageDeCode::VersOctets(texte);
    // NewOnly: a file that appears meanwhile is not overwritten.
    QFile neuf(fichier);
    if (!neuf.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        return false;
    const bool ecrit = neuf.write(octets) == octets.size() && neuf.flush();
    neuf.close();
    if (!ecrit)
        neuf.remove();
    return ecrit;
}

void EnregistrerAssociation()
{
    plateforme().association->Enregistrer();
}

QString BoolVersTexte(bool valeur)
{
    return valeur ? QStringLiteral("1") : QStringLiteral("0");
}

bool TexteVersBool(const QString& texte)
{
    return texte != u"0";
}

int LongueurMax(const QString& texte, int nombre)
{
    return PlusGrand(static_cast<int>(texte.size()), nombre);
}

int PlusGrand(int a, int b)
{
    return std::max(a, b);
}

QString AjouterSlash(const QString& chemin)
{
    return !chemin.isEmpty() && EstSeparateur(chemin.back()) ? chemin : chemin + u'/';
}

QString NomDeFichier(const QString& chemin)
{
    const auto separateur = std::find_if(chemin.rbegin(), chemin.rend(), EstSeparateur);
    return chemin.right(separateur - chemin.rbegin());
}

QString ExtensionDe(const QString& nom)
{
    return nom.mid(nom.lastIndexOf(u'.') + 1).toLower();
}

QString DossierProgramme()
{
    return plateforme().dossierProgramme;
}

QString FichierZelvaneIni()
{
    return DossierProgramme() + QStringLiteral("Zelvane.ini");
}
