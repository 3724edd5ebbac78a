#include <gtest/gtest.h>

#include "kvdatosart/catalog/Historia.h"
#include "kvdatosart/db/Transaccion.h"
#include "kvdatosart/schema/Escritor.h"
#include "kvdatosart/tests/catalog/MundoCatalogo.h"
#include "kvdatosart/tests/servidor/Azar.h"

namespace kv::prueba {
namespace {

std::string TextoTramo(Fecha desde, Fecha hasta, bool pasado, const Tasacion& t) {
    return desde.ATexto().Cadena() + "-" + hasta.ATexto().Cadena() + (pasado ? " pasado " : " ") +
           t.pvp.ATexto('.').Cadena() + " " + t.descuento.ATexto('.').Cadena() + " " + t.neto.ATexto('.').Cadena() +
           " " + t.motivo.Texto() + " " + t.fallo + "\n";
}

std::string TextoTramos(const Puesto& puesto, const PeticionHistoria& peticion) {
    std::string texto;
    for (const TramoHistoria& tramo : HacerHistoria(puesto, peticion))
        texto += TextoTramo(tramo.desde, tramo.hasta, tramo.pasado, tramo.tasacion);
    return texto;
}

// Every single day priced, and equal neighbours put together.
std::string DiaADia(const Puesto& puesto, const PeticionHistoria& peticion) {
    const HoyFijado hoy(peticion.hoy);
    std::string texto, ultimo;
    Fecha desde = peticion.desde;
    Pregunta pregunta = peticion.terminos;
    Tasacion anterior;
    for (Fecha dia = peticion.desde; dia <= peticion.hasta + 1; dia = dia + 1) {
        pregunta.fecha = dia;
        const Tasacion hoyDia = Tasar(puesto, pregunta);
        const std::string este = dia > peticion.hasta ? "fin" : TextoTramo({}, {}, dia < peticion.hoy, hoyDia);
        if (dia > peticion.desde && este != ultimo) {
            texto += TextoTramo(desde, dia + -1, dia + -1 < peticion.hoy, anterior);
            desde = dia;
        }
        ultimo = este;
        anterior = hoyDia;
    }
    return texto;
}

PeticionHistoria Peticion(std::int32_t articulo, std::int32_t cliente, int dias) {
    return {Terminos(articulo, cliente), kHoy, kHoy + dias, kHoy};
}

// Everything dated that may price article 10 for customer 20 of node 1.2, on days of the next weeks and the last ones.
void EscribirMundo(demo::Escritor& e, Azar& azar) {
    e.Fila("Empresas", "Codigo, Cod_EmpresaArticulos, Cod_EmpresaClientes, TarifasxFechas", 1, 1, 1,
           azar.Una(4) ? 0 : 1);
    e.Fila("Articulos", "Cod_Empresa, Codigo, Familia_1", 1, 10, 2);
    e.Fila("Almacen_Articulos", "Cod_Empresa, Cod_Almacen, Cod_Articulo, Stock_Actual", 1, 1, 10, 5);
    e.Fila("Clientes", "Cod_Empresa, Codigo, Cad_Nivel_1, Cad_Nivel_2", 1, 20, azar.Una(3) ? 0 : 1, 2);
    e.Fila("Articulos_Tarifas", "Cod_Empresa, Cod_Articulo, Cod_Tarifa, Pvp", 1, 10, 1, azar.Importe(1, 90, 2));
    for (int i = azar.Entre(0, 4); i > 0; --i) {
        const Fecha entrada = azar.Dia(-20, 60);
        const std::string columnas = "Cod_Empresa, Cod_Articulo, Cod_Tarifa, Codigo, Fecha_Entrada, Pvp, Actualizado";
        if (azar.Una(3))
            e.Fila("Tarifas_Modificacion_C", columnas + ", Borrado, CualidadX", 1, 10, 1, i, entrada,
                   azar.Importe(1, 90, 2), azar.Una(5) ? 0 : 1, azar.Una(5) ? 1 : 0, 38);
        else
            e.Fila("Tarifas_Modificacion", columnas + ", Borrado", 1, 10, 1, i, entrada, azar.Importe(1, 90, 2),
                   azar.Una(5) ? 0 : 1, azar.Una(5) ? 1 : 0);
    }
    for (int i = azar.Entre(0, 3); i > 0; --i) {
        const Fecha desde = kHoy + (azar.Entre(-10, 16) * 3 + i);
        e.Fila("Clientes_Art_PVP", "Cod_Empresa, Cod_Cliente, Cod_Articulo, Fecha_Inicial, Fecha_Final, PVP", 1, 20, 10,
               desde, desde + azar.Entre(i, 25 + i), azar.Importe(0, 90, 2));
    }
    for (int i = azar.Entre(0, 3); i > 0; --i) {
        const Fecha desde = kHoy + (azar.Entre(-10, 16) * 3 + i);
        const Fecha entrada = azar.Dia(-20, 40);
        e.Fila("Clientes_Cadenas_ConvArt",
               "Cod_Empresa, Cod_Articulo, Cod_Nivel1, Cod_Nivel2, Cod_Nivel3, Cod_Nivel4, Cod_Nivel5, Cod_Nivel6,"
               " Cod_Nivel7, Cod_Nivel8, Cod_Nivel9, Cod_Nivel10, FechaEntrada, FechaSalida, PBase, TDto" +
                   std::to_string(i) + ", ImporteDto" + std::to_string(i) + ", FechaEntrada" + std::to_string(i) +
                   ", FechaSalida" + std::to_string(i) + ", TDto5, ImporteDto5, FechaSalida5",
               1, 10, 1, azar.De({0, 2}), 0, 0, 0, 0, 0, 0, 0, 0, desde,
               azar.Una(3) ? Fecha::DeAmd(2050, 12, 31) : desde + azar.Entre(0, 30),
               azar.Una(2) ? Currency() : azar.Importe(1, 90, 2), azar.Entre(0, 1), azar.Importe(0, 9, 1), entrada,
               entrada + azar.Entre(0, 20), 1, azar.Una(2) ? 0 : 1, azar.Dia(0, 40));
    }
}

TEST(Historia, LosTramosSonLosDeTasarCadaDia) {
    const BaseDePrueba base(BaseDePrueba::Datos::Ninguno, kHoy);
    const auto conexion = base.AbrirSinDisco();
    const std::uint64_t semilla = SemillaDePrueba();
    Azar azar(semilla, kHoy);
    std::size_t tramos = 0;
    for (int mundo = 0; mundo < 150; ++mundo) {
        const Transaccion nuncaConfirmada(*conexion);
        demo::Escritor escritor(*conexion, kHoy);
        EscribirMundo(escritor, azar);
        PeticionHistoria peticion = Peticion(10, 20, 70);
        peticion.desde = kHoy + -40;
        peticion.terminos.cualidadX = azar.De<std::uint8_t>({0, 38});
        const Puesto puesto{conexion, EmpresaDemo()};
        const std::string texto = TextoTramos(puesto, peticion);
        ASSERT_EQ(DiaADia(puesto, peticion), texto) << "KV_SEMILLA=" << semilla << ", mundo " << mundo;
        tramos += static_cast<std::size_t>(std::count(texto.begin(), texto.end(), '\n'));
    }
    EXPECT_LT(600U, tramos);
}

TEST(Historia, UnCambioProgramado_UnPrecioConPlazo_YLosBordes) {
    const MundoCatalogo mundo;
    auto& e = *mundo.escritura;
    e.Ejecutar("DELETE FROM Tarifas_Modificacion");
    e.Ejecutar("UPDATE Empresas SET TarifasxFechas =1");
    for (const char* cambio : {"901, '22/11/2026', 89.95", "902, '01/01/2027', 92.5"})
        e.Ejecutar(
            "INSERT INTO Tarifas_Modificacion (Cod_Empresa, Cod_Articulo, Cod_Tarifa, Codigo, Fecha_Entrada, Pvp,"
            " Actualizado) VALUES (1, 101, 1, " +
            std::string(cambio) + ", 1)");
    e.Ejecutar(
        "INSERT INTO Clientes_Art_PVP (Cod_Empresa, Cod_Cliente, Cod_Articulo, Fecha_Inicial, Fecha_Final, PVP)"
        " VALUES (1, 21, 101, '10/11/2026', '31/12/9999', 80)");
    const Puesto puesto = mundo.Puestos(1)[0];
    EXPECT_EQ("21/11/2026-31/12/2026 89.95 0 89.95 tarifa 1 \n01/01/2027-20/01/2027 92.5 0 92.5 tarifa 1 \n",
              TextoTramos(puesto, Peticion(101, 1, 60)));
    PeticionHistoria propia = Peticion(101, 21, 60);
    propia.desde = Fecha::DeAmd(2026, 11, 9);
    propia.hasta = Fecha::DeAmd(9999, 12, 31);
    propia.terminos.unidades = Currency::DeEntero(0);
    std::string texto = TextoTramos(puesto, propia);
    EXPECT_EQ(3, std::count(texto.begin(), texto.end(), '\n')) << texto;
    EXPECT_NE(std::string::npos, texto.find("10/11/2026-20/11/2026 pasado 80 ")) << texto;
    EXPECT_NE(std::string::npos, texto.find("21/11/2026-31/12/9999 80 ")) << texto;
    EXPECT_EQ("", TextoTramos(puesto, Peticion(101, 1, -1)));
    EXPECT_EQ("21/11/2026-21/11/2026 89.95 0 89.95 tarifa 1 \n", TextoTramos(puesto, Peticion(101, 1, 0)));
}

}  // namespace
}  // namespace kv::prueba
