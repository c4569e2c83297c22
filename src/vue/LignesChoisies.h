// Which rows of a list are selected, and which one has the focus: what a view asks and changes. Rows count from 1.
#pragma once

#include <QObject>

#include <vector>

class ModeleTable;

class LignesChoisies
{
public:
    virtual ~LignesChoisies() = default;

    virtual int Count() const = 0;
    virtual bool EstChoisie(int ligne) const = 0;
    virtual int NombreDeChoisies() const = 0;
    /// The first one that is selected; 0 while none is.
    virtual int PremiereChoisie() const = 0;
    /// The last row of the run of selected rows that `ligne` is in.
    virtual int FinDePlage(int ligne) const = 0;
    /// Selects the rows premiere to derniere, or takes them out of the selection; rows that there are not are passed
    /// over.
    virtual void Choisir(int premiere, int derniere, bool choisies) = 0;
    /// The row with the focus; 0 while none has it.
    virtual int Courante() const = 0;
    virtual void SetCourante(int ligne) = 0;
};

/// Those of a table: Selected of its entries and SelectedItem, which others may change too. The table tells of it.
class ChoixDansTable : public LignesChoisies
{
public:
    /// Neither owned; outlives this.
    explicit ChoixDansTable(const ModeleTable& modele) : m_modele(modele) {}

    int Count() const override;
    bool EstChoisie(int ligne) const override;
    int NombreDeChoisies() const override;
    int PremiereChoisie() const override;
    int FinDePlage(int ligne) const override;
    void Choisir(int premiere, int derniere, bool choisies) override;
    int Courante() const override;
    void SetCourante(int ligne) override;

private:
    const ModeleTable& m_modele;
};

/// Those of a list that keeps none itself: a bit a row. None is selected when the list was filled anew.
class ChoixDansListe : public QObject, public LignesChoisies
{
    Q_OBJECT

public:
    /// `lignes` rows, none of them selected.
    void Vider(int lignes);
    /// The rows were put in another order: `avant` is, for each row, the row that it was.
    void SuivreOrdre(const std::vector<int>& avant);

    int Count() const override { return static_cast<int>(m_choisies.size()); }
    bool EstChoisie(int ligne) const override;
    int NombreDeChoisies() const override;
    int PremiereChoisie() const override;
    int FinDePlage(int ligne) const override;
    void Choisir(int premiere, int derniere, bool choisies) override;
    int Courante() const override { return m_courante; }
    void SetCourante(int ligne) override { m_courante = ligne; }

signals:
    /// Once when the event loop is reached, be it that many changed.
    void Change();

private:
    void Annoncer();

    std::vector<bool> m_choisies;
    int m_courante = 0;
    bool m_enAttente = false;
};
