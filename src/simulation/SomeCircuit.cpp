#include "simulation/SomeCircuit.h"

SomeCircuit::SomeCircuit(StandardOutput &output)
    : m_output(output)
{
}

void SomeCircuit::productcodeSetting(qint64 n)
{
    productcode = n;
    m_output.print(std::string("product code :").append(std::to_string(productcode)).append("\n").c_str());
}

void SomeCircuit::signal(qint64 n)
{
    m_output.print(std::to_string(n).append("\n").c_str());
}

void SomeCircuit::signal0(qint64 n)
{
    for (qint64 i = 0; i <= n; ++i)
        m_output.print("0\n");
}

void SomeCircuit::signal1(qint64 n)
{
    for (qint64 i = 0; i <= n; ++i)
        m_output.print("1\n");
}
