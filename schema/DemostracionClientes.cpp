#include <array>
#include <string>

#include "kvdatosart/schema/DemostracionPartes.h"

namespace kv::demo {
namespace {

constexpr auto kNombres = std::to_array<const char*>(
    {"Reformas Alameda", "Talleres Bermejo", "Construcciones Cantal", "Instalaciones Duero", "Carpintería Encina",
     "Pinturas Fresneda", "Jardines Granate", "Hostelería Horizonte", "Limpiezas Islote", "Montajes Jarama",
     "Cooperativa Levante Norte", "Cooperativa Levante Sur", "Cooperativa Levante Centro", "Grupo Meseta Obra",
     "Grupo Meseta Hogar"});

constexpr auto kLocalidades = std::to_array<std::array<const char*, 2>>({{"Zaragoza", "Zaragoza"},
                                                                         {"Huesca", "Huesca"},
                                                                         {"Teruel", "Teruel"},
                                                                         {"Tudela", "Navarra"},
                                                                         {"Reus", "Tarragona"},
                                                                         {"Castellón", "Castellón"},
                                                                         {"Soria", "Soria"}});

constexpr int kClientes = 60;
constexpr int kPrimeroInterno = 49;

// The chain hierarchy: chain 1 with four levels in one branch, chain 2 with two.
struct EnCadena {
    int cliente;
    std::array<int, 4> niveles;
};

constexpr auto kEnCadena = std::to_array<EnCadena>({{11, {1, 1, 1, 1}},
                                                    {12, {1, 1, 1, 2}},
                                                    {13, {1, 1, 2, 0}},
                                                    {14, {1, 2, 0, 0}},
                                                    {15, {1, 0, 0, 0}},
                                                    {16, {2, 1, 0, 0}},
                                                    {17, {2, 2, 0, 0}},
                                                    {18, {2, 0, 0, 0}},
                                                    {19, {1, 1, 1, 1}},
                                                    {20, {2, 1, 0, 0}}});

std::array<int, 4> Cadena(int cliente) {
    for (const EnCadena& c : kEnCadena)
        if (c.cliente == cliente) return c.niveles;
    return {};
}

std::string Nombre(int cliente) {
    if (cliente >= kPrimeroInterno) return "Tienda propia " + std::to_string(cliente - kPrimeroInterno + 1);
    const auto indice = static_cast<std::size_t>(cliente - 1);
    std::string nombre = kNombres[indice % kNombres.size()];
    if (indice >= kNombres.size()) nombre += " " + std::to_string(indice / kNombres.size() + 1);
    return nombre;
}

// The first customers have what their price needs to be seen; the rest is spread evenly.
int TarifaCliente(int cliente) {
    constexpr std::array<int, 8> kPrimeros = {2, 3, 1, 1, 1, 1, 3, 3};
    return cliente <= 8 ? kPrimeros[static_cast<std::size_t>(cliente) - 1] : 1 + cliente % 3;
}

int Grupo(int cliente) {
    if (cliente == 6) return 1;
    return cliente >= 21 && cliente <= 35 ? 1 + cliente % 3 : 0;
}

void Cliente(Escritor& escritor, int cliente) {
    const std::array<int, 4> cadena = Cadena(cliente);
    const auto& localidad = kLocalidades[static_cast<std::size_t>(cliente) % kLocalidades.size()];
    const std::string nombre = Nombre(cliente);
    escritor.Fila("Clientes",
                  "Cod_Empresa, Codigo, Nombre, Nombre_Comercial, Direccion, Localidad, Provincia, Pais, EMail,"
                  " F_Razon, Tarifa_Pvp, Tarifa_Promoc, Grupo_Dto, Dto_ProntoPago, Credito, Cod_FPago, FAlta, FUVenta,"
                  " TipoCliente, Cad_Nivel_1, Cad_Nivel_2, Cad_Nivel_3, Cad_Nivel_4, padre, Cta_Cliente",
                  kEmpresa, cliente, nombre, nombre, "Calle Mayor " + std::to_string(cliente * 3), localidad[0],
                  localidad[1], "España", "compras" + std::to_string(cliente) + "@ejemplo.invalid", nombre + " S.L.",
                  TarifaCliente(cliente), cliente == 2 || cliente % 10 == 0 ? 4 : 0, Grupo(cliente),
                  Centimos(cliente % 5 == 0 ? 200 : 0), Centimos(300000 + cliente * 10000), 1 + cliente % 4,
                  Fecha::DeAmd(2020, 1 + cliente % 12, 1 + cliente % 28),
                  Fecha::DeAmd(2024, 1 + cliente % 9, 1 + cliente % 28), cliente >= kPrimeroInterno ? 1 : 0, cadena[0],
                  cadena[1], cadena[2], cadena[3], cliente == 19 ? 11 : 0, "4300000" + std::to_string(100 + cliente));
    escritor.Fila("Clientes_Telefonos", "Cod_Empresa, Cod_Cliente, Codigo, Numero", kEmpresa, cliente, 1,
                  "976 000 " + std::to_string(100 + cliente));
    if (cliente % 3 == 0)
        escritor.Fila("Clientes_Telefonos", "Cod_Empresa, Cod_Cliente, Codigo, Numero", kEmpresa, cliente, 2,
                      "600 000 " + std::to_string(100 + cliente));
}

void Documentos(Escritor& escritor) {
    for (int codigo = 1; codigo <= 20; ++codigo) {
        const int cliente = 1 + codigo % 15;
        escritor.Fila("Facturas", "Cod_Empresa, Codigo, Cliente, Fecha, Total", kEmpresa, codigo, cliente,
                      Fecha::DeAmd(2024, 1 + codigo % 9, codigo), Centimos(10000 + codigo * 731));
        escritor.Fila("Albaranes_F", "Cod_Empresa, Codigo, Cliente, Fecha, Total, Factura_Codigo", kEmpresa, codigo,
                      cliente, Fecha::DeAmd(2024, 1 + codigo % 9, codigo), Centimos(10000 + codigo * 731),
                      codigo % 4 == 0 ? 0 : codigo);
        escritor.Fila("Clientes_Puntos", "Cod_Empresa, Cod_Cliente, Codigo, Fecha, Puntos", kEmpresa, cliente, codigo,
                      Fecha::DeAmd(2024, 1 + codigo % 9, codigo), codigo % 5 == 0 ? -20 : 15 + codigo);
    }
    escritor.Fila("Presup", "Cod_Empresa, Codigo, Cliente, Fecha, Total", kEmpresa, 1, 40, Fecha::DeAmd(2024, 5, 4),
                  Centimos(129900));
    escritor.Fila("TPV_Tickets", "Cod_Empresa, Codigo, Cliente, Fecha, Total", kEmpresa, 1, 41,
                  Fecha::DeAmd(2024, 5, 4), Centimos(4590));
    escritor.Fila("Clientes_Notas", "Cod_Empresa, Cod_Cliente, Codigo, Texto, Pendiente, Vencimiento", kEmpresa, 1, 1,
                  "Revisar condiciones de pago", 1, escritor.Hoy() + -5);
    escritor.Fila("Clientes_Contactos", "Cod_Empresa, Cod_Cliente, Codigo, Nombre", kEmpresa, 1, 1,
                  "Encargada de compras");
}

// Sales by day, in the statistics and in their copies for transfer: drills, and boots by size and colour.
void Estadisticas(Escritor& escritor) {
    for (const char* tabla : {"Clientes_Articulos", "Clientes_Articulos_Tx"})
        for (int dia = 1; dia <= 9; ++dia)
            escritor.Fila(tabla,
                          "Cod_Empresa, Cod_Almacen, Cod_Cliente, Cod_Articulo, Fecha, Unidades, Importe_PVP,"
                          " Importe_Costo",
                          kEmpresa, 1, dia, 101, Fecha::DeAmd(2024, 6, dia), dia, Centimos(8995 * dia),
                          Centimos(5235 * dia));
    for (const char* tabla : {"Clientes_Articulos_C", "Clientes_Articulos_C_Tx"})
        for (int talla = 40; talla <= 43; ++talla)
            escritor.Fila(tabla,
                          "Cod_Empresa, Cod_Almacen, Cod_Cliente, Cod_Articulo, CualidadX, CualidadY, Fecha, Unidades,"
                          " Importe_PVP, Importe_Costo",
                          kEmpresa, 1, 1, 103, talla, 1, Fecha::DeAmd(2024, 6, 10), 2, Centimos(11800), Centimos(6350));
}

}  // namespace

void EscribirClientes(Escritor& escritor) {
    for (int cliente = 1; cliente <= kClientes; ++cliente) Cliente(escritor, cliente);
    Documentos(escritor);
    Estadisticas(escritor);
}

}  // namespace kv::demo
