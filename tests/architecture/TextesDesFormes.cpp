#include "architecture/TextesDesFormes.h"

#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QXmlStreamReader>

#include <algorithm>
#include <optional>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// A control of a .ui file, while its texts are gathered.
struct Controle
{
    QString classe;
    QString nom;
    std::map<QString, QString> textes; ///< by the property's name
};

/// What a .ui file says.
struct ContenuDUi
{
    std::vector<Controle> controles;        ///< the form first
    std::map<QString, QString> menuDItem;   ///< of an action or a menu, the menu that shows it first
    std::map<QString, QStringList> boutons; ///< of a tool bar, its actions in their order
};

bool ATraduire(const QString& texte)
{
    return std::ranges::any_of(texte, [](QChar lettre) { return lettre.isLetter(); });
}

class LecteurDUi
{
public:
    explicit LecteurDUi(const QByteArray& ui) : m_xml(ui) {}

    ContenuDUi Lire()
    {
        while (!m_xml.atEnd()) {
            const auto jeton = m_xml.readNext();
            if (jeton == QXmlStreamReader::StartElement)
                Commencer();
            else if (jeton == QXmlStreamReader::EndElement && EstPorteur())
                m_ouverts.pop_back();
        }
        return m_contenu;
    }

private:
    bool EstControle() const { return m_xml.name() == "widget"_L1 || m_xml.name() == "action"_L1; }
    /// An element whose properties are its own: those of a layout or of a list's lines are no texts of the control.
    bool EstPorteur() const
    {
        const QStringView nom = m_xml.name();
        return EstControle() || nom == "layout"_L1 || nom == "item"_L1 || nom == "column"_L1 || nom == "row"_L1;
    }
    Controle* Ouvert()
    {
        const auto place = m_ouverts.empty() ? std::nullopt : m_ouverts.back();
        return place ? &m_contenu.controles[*place] : nullptr;
    }

    void Commencer()
    {
        const auto attributs = m_xml.attributes();
        const QString nom = attributs.value("name"_L1).toString();
        if (EstControle()) {
            m_ouverts.emplace_back(m_contenu.controles.size());
            const QString classe = attributs.value("class"_L1).toString();
            m_contenu.controles.push_back({classe.isEmpty() ? u"QAction"_s : classe, nom, {}});
        } else if (EstPorteur()) {
            m_ouverts.emplace_back(std::nullopt);
        } else if (m_xml.name() == "addaction"_L1 && Ouvert()) {
            if (Ouvert()->classe == "QToolBar"_L1)
                m_contenu.boutons[Ouvert()->nom].append(nom);
            else
                m_contenu.menuDItem.try_emplace(nom, Ouvert()->nom);
        } else if (m_xml.name() == "property"_L1) {
            m_propriete = nom;
        } else if (m_xml.name() == "string"_L1 && Ouvert()) {
            const bool fixe = attributs.value("notr"_L1) == "true"_L1;
            const QString texte = m_xml.readElementText();
            if (!fixe && ATraduire(texte))
                Ouvert()->textes[m_propriete] = texte;
        }
    }

    QXmlStreamReader m_xml;
    ContenuDUi m_contenu;
    std::vector<std::optional<std::size_t>> m_ouverts; ///< places in the list of controls
    QString m_propriete;
};

QString TexteDe(const Controle& controle, const QString& propriete)
{
    const auto trouve = controle.textes.find(propriete);
    return trouve == controle.textes.end() ? QString() : trouve->second;
}

/// An accessible name that repeats a text of its control follows that one's translation.
void AjouterAcces(const Controle& controle, std::map<QString, TexteDeForme>& section)
{
    const QString nom = TexteDe(controle, u"accessibleName"_s);
    const auto repete = [&](const QString& propriete) { return TexteDe(controle, propriete) == nom; };
    if (!nom.isEmpty() && std::ranges::none_of(QStringList{u"text"_s, u"title"_s, u"toolTip"_s}, repete))
        section[controle.nom + u"_A"_s] = {nom, QString()};
    if (const QString description = TexteDe(controle, u"accessibleDescription"_s); !description.isEmpty())
        section[controle.nom + u"_AD"_s] = {description, QString()};
}

void AjouterControle(const Controle& controle, const QString& groupe, std::map<QString, TexteDeForme>& section)
{
    const QString nom = controle.nom;
    const bool saisie = controle.classe == "QLineEdit"_L1 || controle.classe == "QPlainTextEdit"_L1;
    for (const QString& propriete : {u"text"_s, u"title"_s}) {
        const QString texte = TexteDe(controle, propriete);
        if (!texte.isEmpty() && texte != nom)
            section[nom + (saisie ? u"_T"_s : u"_C"_s)] = {texte, groupe};
    }
    const QString infoBulle = TexteDe(controle, u"toolTip"_s);
    // An action shows its hint by the button that stands for it, whose text follows then.
    if (!infoBulle.isEmpty() && controle.classe != "QAction"_L1)
        section[nom + u"_TT"_s] = {infoBulle, QString()};
    AjouterAcces(controle, section);
}

/// The buttons of a tool bar are its actions, and known by their places.
void AjouterBoutons(const ContenuDUi& contenu, std::map<QString, TexteDeForme>& section)
{
    for (const auto& [barre, actions] : contenu.boutons) {
        for (qsizetype i = 0; i < actions.size(); ++i) {
            const auto action = std::ranges::find(contenu.controles, actions[i], &Controle::nom);
            if (action != contenu.controles.end())
                section[barre + u"_TT_%1"_s.arg(i + 1)] = {TexteDe(*action, u"toolTip"_s), QString()};
        }
    }
}

QString Lettre(const QString& texte)
{
    const qsizetype place = QString(texte).replace(u"&&"_s, u"  "_s).indexOf(u'&');
    return place < 0 ? QString() : texte.mid(place + 1, 1).toLower();
}

QString Contenu(const QString& chemin)
{
    QFile fichier(chemin);
    return fichier.open(QIODevice::ReadOnly) ? QString::fromUtf8(fichier.readAll()) : QString();
}

/// Some forms stay in French: their code asks for no translation. Also a long form's code in several files counts.
bool EstTraduite(const QFileInfo& ui)
{
    const QDir dossier = ui.dir();
    const QStringList codes = dossier.entryList({ui.completeBaseName() + u"*.cpp"_s}, QDir::Files);
    return std::ranges::any_of(
        codes, [&](const QString& nom) { return Contenu(dossier.filePath(nom)).contains("LangForm("_L1); });
}

} // namespace

void LireUi(const QByteArray& ui, TextesDesFormes& formes)
{
    const ContenuDUi contenu = LecteurDUi(ui).Lire();
    if (contenu.controles.empty())
        return;
    const Controle& forme = contenu.controles.front();
    const bool dialogue = forme.classe == "QDialog"_L1;
    auto& section = formes[forme.nom];
    if (const QString titre = TexteDe(forme, u"windowTitle"_s); !titre.isEmpty())
        section[u"Caption"_s] = {titre, QString()};
    for (const Controle& controle : contenu.controles) {
        const auto menu = contenu.menuDItem.find(controle.nom);
        const QString ailleurs = menu == contenu.menuDItem.end() ? QString() : menu->second;
        if (controle.classe == "QAction"_L1 && TexteDe(controle, u"text"_s) == TexteDe(controle, u"toolTip"_s))
            continue;
        AjouterControle(controle, dialogue ? forme.nom : ailleurs, section);
    }
    AjouterBoutons(contenu, section);
}

void LireMenus(const QString& menus, const QString& commandes, TextesDesFormes& formes)
{
    static const QRegularExpression ligne(uR"re((?:\{|\.cle = )u"([^"]*)",\s*(?:\.caption = )?u"([^"]+)")re"_s);
    static const QRegularExpression liste(uR"re(constexpr Item (\w+)\[\] = \{(.*?)\n    \};)re"_s,
                                          QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression item(uR"re(\{"(\w+)", u"(\w+)"\})re"_s);
    static const QRegularExpression menu(uR"re(\{"(\w+)", u"([^"]+)", (\w+)\})re"_s);
    std::map<QString, QString> captions;
    for (const auto& trouve : commandes.isEmpty() ? QRegularExpressionMatchIterator() : ligne.globalMatch(commandes))
        captions[trouve.captured(1)] = trouve.captured(2);
    auto& section = formes[u"Form1"_s];
    for (const auto& trouvee : liste.globalMatch(menus)) {
        const QString dedans = trouvee.captured(2);
        for (const auto& trouve : item.globalMatch(dedans))
            section[trouve.captured(1) + u"_C"_s] = {captions[trouve.captured(2)], trouvee.captured(1)};
    }
    for (const auto& trouve : menu.globalMatch(menus)) {
        const bool dansFichier = trouve.captured(1) == "mNouveau"_L1;
        section[trouve.captured(1) + u"_C"_s] = {trouve.captured(2), dansFichier ? u"Fichier"_s : u"Menus"_s};
    }
}

void LireBarres(const QString& barres, TextesDesFormes& formes)
{
    static const QRegularExpression bouton(uR"re(\{u"[^"]*", u"([^"]+)", u"[^"]+"\},)re"_s);
    auto& section = formes[u"MDIForm1"_s];
    int place = 0;
    for (const auto& trouve : bouton.globalMatch(barres)) {
        ++place;
        for (const QString& barre : {u"Toolbar1"_s, u"Toolbar2"_s})
            section[barre + u"_TT_%1"_s.arg(place)] = {trouve.captured(1), QString()};
    }
    static const QRegularExpression autre(uR"re(PlaceDEditcat\]\.infoBulle = u"([^"]+)")re"_s);
    static const QRegularExpression rang(uR"re(PlaceDEditcat = (\d+))re"_s);
    if (const auto trouve = autre.match(barres); trouve.hasMatch()) {
        const int position = rang.match(barres).captured(1).toInt() + 1;
        section[u"Toolbar2_TT_%1"_s.arg(position)] = {trouve.captured(1), QString()};
    }
}

TextesDesFormes TextesDuDossier(const QString& sources)
{
    TextesDesFormes formes;
    QDirIterator fichiers(sources, {u"*.ui"_s}, QDir::Files, QDirIterator::Subdirectories);
    while (fichiers.hasNext()) {
        const QString chemin = fichiers.next();
        if (EstTraduite(QFileInfo(chemin)))
            LireUi(Contenu(chemin).toUtf8(), formes);
    }
    LireMenus(Contenu(sources + u"/shell/Form1Menus.cpp"_s), Contenu(sources + u"/shell/Commandes.cpp"_s), formes);
    LireBarres(Contenu(sources + u"/shell/Toolbars.cpp"_s), formes);
    return formes;
}

QStringList MnemoniquesDoubles(const TextesDesFormes& formes,
                               const std::function<QString(const QString& section, const QString& cle)>& texte)
{
    QStringList doubles;
    for (const auto& [section, textes] : formes) {
        std::map<QString, QString> premiers;
        for (const auto& [cle, texteDeForme] : textes) {
            const QString traduit = texte(section, cle);
            const QString lettre = Lettre(traduit);
            if (texteDeForme.groupe.isEmpty() || lettre.isEmpty())
                continue;
            const auto [premier, nouveau] = premiers.try_emplace(texteDeForme.groupe + u'&' + lettre, traduit);
            if (!nouveau)
                doubles.append(u"[%1] %2: \"%3\" and \"%4\""_s.arg(section, cle, premier->second, traduit));
        }
    }
    return doubles;
}
