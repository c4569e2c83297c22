// Clock and random numbers.
#pragma once

#include <QDateTime>

#include <cstdint>
#include <random>

class Horloge
{
public:
    virtual ~Horloge() = default;
    /// Local date and time.
    virtual QDateTime Maintenant() const = 0;
};

class HorlogeSysteme : public Horloge
{
public:
    QDateTime Maintenant() const override { return QDateTime::currentDateTime(); }
};

class Hasard
{
public:
    virtual ~Hasard() = default;
    virtual void Semer(uint32_t graine) = 0;
    /// A number from 0 up to but not including 1.
    virtual double Tirer() = 0;
};

class HasardSysteme : public Hasard
{
public:
    void Semer(uint32_t graine) override { m_generateur.seed(graine); }
    // 32 of 53 bits: dividing by 2^32 is exact and never gives 1.
    double Tirer() override { return m_generateur() / 4294967296.0; }

private:
    std::mt19937 m_generateur;
};
