#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "kvdatosart/base/Currency.h"
#include "kvdatosart/base/Fecha.h"
#include "kvdatosart/db/Inyectado.h"

namespace kv {

/// One customer of the table `Clientes`: loads, browses, writes and deletes it, and answers what the rest of the
/// suite asks about it. `Codigo` names the customer for every method that takes none.
class clsCliente : public Inyectado {
  public:
    /// Identity and address. `Cp`, `Web` and `Fax` have no column.
    std::int32_t Codigo = 0;
    std::string Nombre;
    std::string Nombre_Comercial;
    std::string Direccion;
    std::string Cp;
    std::string Localidad;
    std::string Provincia;
    std::string Pais;
    std::string EMail;
    std::string Web;
    std::string Telefono;
    std::string Fax;
    /// 0: a customer who buys at prices; any other kind buys at cost. Reason for discontinuation, 0 = none.
    std::int16_t TipoCliente = 0;
    std::int16_t MotivoBaja = 0;
    /// Fiscal address. `F_Nif` has no column.
    std::string F_Nif;
    std::string F_Razon;
    std::string F_Via;
    std::string F_Direccion;
    std::string F_Numero;
    std::string F_Escalera;
    std::string F_Piso;
    std::string F_Puerta;
    std::string F_Cp;
    std::string F_Localidad;
    std::string F_Provincia;
    std::string F_Pais;
    std::string F_eMail;
    std::string F_Web;
    /// Commercial terms. `padre` is the parent customer, 0 = none; a tariff of 0 is none.
    bool IntraComunitario = false;
    bool PortesDebidos = false;
    std::int16_t Divisa = 0;
    std::int16_t Ruta = 0;
    std::int16_t Zona = 0;
    std::int16_t Actividad = 0;
    std::int16_t AgenciaTransp = 0;
    std::int32_t padre = 0;
    std::int16_t AlmacenAsoc = 0;
    std::int16_t TarifaPVP = 0;
    std::int16_t TarifaPromocion = 0;
    bool Bloqueado = false;
    std::optional<Fecha> FechaBloq;
    std::string MotivoBloq;
    /// Ledger accounts.
    std::string Cta_Cliente;
    std::string Cta_Retenciones;
    std::string Cta_Efectos;
    std::string Cta_Ventas;
    std::string Cta_DVentas;
    /// Payment and discounts (percent), bank accounts, credit limit and risk (currency).
    std::int16_t FormaPago = 0;
    std::int16_t Grupo_Dto = 0;
    Currency Dto_1;
    std::string CCC;
    Currency Dto_2;
    Currency Dto_3;
    Currency Dto_4;
    Currency Dto_5;
    Currency DtoPPago;
    Currency Retenciones;
    Currency RecFinanciero;
    std::string CCCRemesas;
    Currency Credito;
    Currency Riesgo;
    /// People.
    std::int16_t Representante = 0;
    std::int16_t Vendedor = 0;
    std::int16_t Cobrador = 0;
    /// Invoicing.
    std::optional<Fecha> FechaEspecial;
    std::string DescFEspecial;
    bool Contravale = false;
    bool Mtto = false;
    std::uint8_t CopiasFra = 0;
    std::string Mensaje;
    std::uint8_t TipoImpresion = 0;
    std::uint8_t TipoVenta = 0;
    std::int16_t CodAlbaranes = 0;
    bool EnvioEDI = false;
    std::uint8_t PeriodoFact = 0;
    bool FactIndep = false;
    /// Payment calendar.
    std::uint8_t DiaPago_1 = 0;
    std::uint8_t DiaPago_2 = 0;
    std::uint8_t DiaCierre_1 = 0;
    std::uint8_t DiaCierre_2 = 0;
    std::uint8_t TipoVenc = 0;
    std::int16_t Dias_Venc = 0;
    std::uint8_t TipoCarta = 0;
    /// Free texts and invoicing details.
    std::string Alternativo1;
    std::string Alternativo2;
    std::string Alternativo3;
    std::string Alternativo4;
    std::string Alternativo5;
    std::string Observaciones;
    std::string MsgAlerta;
    std::string Serie;
    std::int32_t MaxPuntos = 0;
    bool Factura_PedirLote = false;
    bool Factura_PedirVto = false;
    /// First and last day as a customer, last sale and last collection; none where the column is NULL.
    std::optional<Fecha> FAlta;
    std::optional<Fecha> FBaja;
    std::optional<Fecha> FUVenta;
    std::optional<Fecha> FUCobro;
    /// Chain path, top level first; a first level of 0 is no chain.
    std::int16_t Cad_Nivel_1 = 0;
    std::int16_t Cad_Nivel_2 = 0;
    std::int16_t Cad_Nivel_3 = 0;
    std::int16_t Cad_Nivel_4 = 0;
    std::int16_t Cad_Nivel_5 = 0;
    std::int16_t Cad_Nivel_6 = 0;
    std::int16_t Cad_Nivel_7 = 0;
    std::int16_t Cad_Nivel_8 = 0;
    std::int16_t Cad_Nivel_9 = 0;
    std::int16_t Cad_Nivel_10 = 0;
    /// Order of previous and next: true by name, false by code. Not a column.
    bool FichaClienteModoDesp = false;
    /// The first four telephone numbers, as `Cargar_Telefonos` finds them.
    std::string TelefonoP;
    std::string TelefonoS;
    std::string TelefonoFP;
    std::string TelefonoFS;

    // The six loaders, from `Cargar` to `Cargar_Telefonos`, read into `objDestino`, or into this object when it is
    // null, and tell whether there was a row; without one nothing changes. A NULL in a column that is no date is error
    // 94 and leaves what was read before it loaded. Failures carry the loader's own name as source.

    /// The customer in `Codigo`.
    bool Cargar(clsCliente* objDestino = nullptr);
    /// The lowest and the highest code, also when the order is by name.
    bool Cargar_Primero(clsCliente* objDestino = nullptr);
    bool Cargar_Ultimo(clsCliente* objDestino = nullptr);
    /// The neighbours in the chosen order. By name, customers of the same name are passed over together.
    bool Cargar_Anterior(clsCliente* objDestino = nullptr);
    bool Cargar_Siguiente(clsCliente* objDestino = nullptr);

    /// The telephones of the customer in `Codigo`, ten at most; the first four go to the properties above, empty where
    /// there are fewer.
    bool Cargar_Telefonos(clsCliente* objDestino = nullptr);
    /// Number of telephones read, and the one at `indice` (0 to 9, error 9 outside what was read).
    std::size_t NumeroTelefonos() const { return numeroTelefonos_; }
    const std::string& Numero(std::size_t indice) const;
    /// Adds a telephone to the customer in `Codigo`.
    void Insertar_Telefono(std::uint8_t bytCodigo, const std::string& strNumero);

    /// Writes every column as a new row, or over the row of `Codigo`. Texts go between quotes as they are.
    void Insertar();
    void Modificar();

    /// Deletes the customer and its own detail rows, all or nothing, and tells whether it did. Unless `bolForzar`, a
    /// customer that other rows refer to is refused with a critical message. Documents are never deleted.
    bool Eliminar(bool bolForzar);

    /// Moves the last sale or collection forward to this day; never back, and a NULL stays NULL.
    void Act_FUVenta(Fecha dteFecha);
    void Act_FUCobro(Fecha dteFecha);
    /// The highest code from `lngCodigoMin` up, plus 1; 1 when there is none. Error 6 past the last code.
    std::int32_t Dev_Codigo_Nuevo(std::int32_t lngCodigoMin);
    /// True when any customer of the company has a pending note that is due.
    bool Verif_Notas();
    /// Total of the customer's delivery notes that are not invoiced yet.
    Currency Dev_SaldoAlbaranes();
    /// True when the customer in `Codigo` exists.
    bool Existe();
    /// The customer's loyalty points.
    Currency Dev_SaldoPuntos();

  private:
    bool CargarDe(std::string_view sql, clsCliente* objDestino);
    void VaciarTelefonos();
    void TomarTelefono(const Valor& numero);
    bool TieneDependencias();
    void EliminarFilas();

    std::array<std::string, 10> telefonos_;
    std::size_t numeroTelefonos_ = 0;
};

}  // namespace kv
