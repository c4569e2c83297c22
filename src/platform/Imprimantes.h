// The printers of the system, and pages on their way to one of them. The paper is A4; lengths on it are in units of the
// painter, from the paper's upper left corner.
#pragma once

#include <QString>
#include <QStringList>

#include <memory>

class QPaintDevice;

/// The units of a painter on paper.
constexpr int UnitesParPouce = 1200;

/// A job that has begun. One that goes without having ended is given up, as far as the system lets it.
class TravailDImpression
{
public:
    virtual ~TravailDImpression() = default;
    /// Where a painter writes the page, the first one at once.
    virtual QPaintDevice& Papier() = 0;
    /// False when there can be no further page.
    virtual bool NouvellePage() = 0;
    /// Sends it, once no painter is at work on it any more. False when it is known not to have gone.
    virtual bool Finir() = 0;
};

class Imprimantes
{
public:
    virtual ~Imprimantes() = default;
    virtual QStringList Noms() const = 0;
    /// The one that is used unless another is chosen; empty for none.
    virtual QString ParDefaut() const = 0;
    /// `titre`: what the job is called in the printer's list. Null for a printer that is not there any more.
    virtual std::unique_ptr<TravailDImpression> Commencer(const QString& imprimante, const QString& titre) = 0;

    /// The current one: what was chosen last since the program's start, else the system's.
    QString Courante() const { return m_choisie.isEmpty() ? ParDefaut() : m_choisie; }
    void Choisir(const QString& imprimante) { m_choisie = imprimante; }

private:
    QString m_choisie;
};

/// For programs that print nothing.
class AucuneImprimante : public Imprimantes
{
public:
    QStringList Noms() const override { return {}; }
    QString ParDefaut() const override { return {}; }
    std::unique_ptr<TravailDImpression> Commencer(const QString&, const QString&) override { return nullptr; }
};
