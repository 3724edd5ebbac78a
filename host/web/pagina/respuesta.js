// The answer to a question: the price large, what there is, and why. Each number carries its name in data-dato.

import {cantidad, contar, crear, dibujar, importe} from './comun.js';

const siNo = valor => valor ? 'sí' : 'no';
const codigo = valor => valor ? String(valor) : '—';
const texto = valor => valor === '' ? '—' : String(valor);

const PRINCIPALES = [
    ['descuento', 'Descuento de la línea', valor => `${cantidad(valor)} %`], ['neto', 'Neto', importe],
    ['precioOriginal', 'Antes del descuento', importe], ['precioBase', 'Precio base', importe],
    ['tarifa', 'Tarifa del precio', codigo], ['coste', 'Coste', importe], ['convenio', 'Convenio de la cadena', texto],
];
const FICHA = [
    ['existencias', 'Existencias', cantidad], ['pendienteServir', 'Por servir', cantidad], ['pendienteRecibir', 'Por recibir', cantidad],
    ['bloqueadoAlmacen', 'Bloqueado en el almacén', siNo], ['bloqueadoVenta', 'Bloqueado para la venta', siNo],
    ['bloqueadoCatalogo', 'Bloqueado en el catálogo', siNo], ['generico', 'Genérico', siNo], ['mueveExistencias', 'Mueve existencias', siNo],
    ['familia1', 'Familia 1', codigo], ['familia2', 'Familia 2', codigo], ['familia3', 'Familia 3', codigo], ['unidadesPorCaja', 'Unidades por caja', cantidad],
    ['impuesto', 'Impuesto', codigo], ['impuesto2', 'Segundo impuesto', codigo], ['cuentaVentas', 'Cuenta de ventas', texto],
    ['cuentaDevoluciones', 'Cuenta de devoluciones', texto], ['raee', 'RAEE', importe], ['ecoRaee', 'ECORAEE', importe], ['puntos', 'Puntos', cantidad],
    ['controlSeries', 'Control de series', siNo], ['controlCaducidad', 'Control de caducidad', siNo], ['controlLotes', 'Control de lotes', siNo],
    ['envase', 'Envase', codigo], ['tipoReposicion', 'Tipo de reposición', codigo], ['largo', 'Largo', cantidad], ['ancho', 'Ancho', cantidad],
    ['alto', 'Alto', cantidad], ['peso', 'Peso', cantidad], ['mensajeAlerta', 'Mensaje de alerta', texto], ['motivoBaja', 'Motivo de baja', codigo],
    ['bajoPedido', 'Bajo pedido', siNo], ['unidadesDecimales', 'Unidades con decimales', siNo],
];

/** The elements that show the document of a load; `almacen` is the warehouse as people call it. */
export function respuestaDe(documento, almacen) {
    const cascada = cascadaDe(documento.explicacion);
    return [
        crear('div', {class: 'precio'},
            crear('p', {class: 'descripcion'}, documento.descripcion),
            crear('p', {}, crear('span', {}, 'Precio '), crear('strong', {'data-dato': 'precio'}, documento.precio ? importe(documento.precio) : 'sin precio'))),
        datos(documento, PRINCIPALES),
        crear('ul', {class: 'estado', 'data-estado': documento.codigoEstado}, frasesDe(documento, almacen).map(([frase, grave]) => crear('li', {class: grave ? 'grave' : undefined}, frase))),
        crear('h3', {}, 'Por qué este precio'),
        crear('ol', {class: 'pasos'}, gruposDe(documento.explicacion).map(grupo => grupo.length > 1 || grupo[0].vacia ? plegado(grupo) : paso(grupo[0]))),
        cascada,
        crear('details', {class: 'ficha'}, crear('summary', {}, 'El resto de la ficha'), datos(documento, FICHA)),
    ].filter(Boolean);
}

// What the program keeps to itself (null) is not shown, nor an agreement that there is not.
function datos(documento, cuales) {
    const hay = cuales.filter(([clave]) => documento[clave] !== null && documento[clave] !== undefined && !(clave === 'convenio' && documento[clave] === ''));
    return crear('dl', {}, hay.map(([clave, rotulo, decir]) =>
        crear('div', {}, crear('dt', {}, rotulo), crear('dd', {'data-dato': clave}, decir(documento[clave])))));
}

// Stock and locks as one would say them on the telephone; true for what stands in a sale's way.
function frasesDe(d, almacen) {
    const hay = contar(d.existencias, 'unidad', 'unidades');
    const frases = [];
    if (d.codigoEstado === 3) frases.push([`Bloqueado en el almacén ${almacen}; hay ${hay}`, true]);
    else if (d.codigoEstado === 2) frases.push([`Sin existencias en el almacén ${almacen}` + (d.existencias ? `: ${hay}` : ''), true]);
    else frases.push([d.mueveExistencias ? `Se puede servir: hay ${hay} en el almacén ${almacen}` : 'No lleva existencias', false]);
    if (d.bloqueadoAlmacen && d.codigoEstado !== 3) frases.push([`Bloqueado en el almacén ${almacen}`, true]);
    if (d.bloqueadoVenta) frases.push(['Bloqueado para la venta', true]);
    if (d.bloqueadoCatalogo) frases.push(['Bloqueado en el catálogo', true]);
    if (d.motivoBaja) frases.push([`Dado de baja (motivo ${d.motivoBaja})`, true]);
    if (d.mensajeAlerta) frases.push([d.mensajeAlerta, true]);
    if (d.pendienteServir) frases.push([`Por servir a clientes: ${cantidad(d.pendienteServir)}`, false]);
    if (d.pendienteRecibir) frases.push([`Por recibir de proveedores: ${cantidad(d.pendienteRecibir)}`, false]);
    if (d.bajoPedido) frases.push(['Se trae bajo pedido', false]);
    if (d.unidadesPorCaja > 1) frases.push([`La caja trae ${contar(d.unidadesPorCaja, 'unidad', 'unidades')}`, false]);
    return frases;
}

// The sources one by one in their order; neighbours that had nothing are one group.
function gruposDe(explicacion) {
    const grupos = [];
    explicacion.forEach((fuente, orden) => {
        const ultimo = grupos.at(-1);
        if (fuente.vacia && ultimo?.[0].vacia) ultimo.push({...fuente, orden});
        else grupos.push([{...fuente, orden}]);
    });
    return grupos;
}

// Sentences for programs have decimal points; a chain's node is no number.
const conComas = frase => frase.replace(/(?<![\d.])(\d+)\.(\d{1,4})(?![\d.])/g, '$1,$2');

function paso(p) {
    const numero = nombre => crear('span', {'data-dato': `explicacion.${p.orden}.${nombre}`}, importe(p[nombre]));
    return crear('li', {value: p.orden + 1, class: p.decide ? 'decide' : undefined},
        crear('b', {}, p.fuente), p.decide ? crear('em', {}, 'pone el precio') : null,
        p.clave && crear('span', {class: 'clave'}, p.nodo === null ? conComas(p.clave) : p.clave),
        crear('span', {class: 'resultado'}, conComas(p.resultado)),
        p.antes === null ? null : crear('span', {class: 'cambio'}, numero('antes'), ' → ', numero('despues')));
}

function plegado(grupo) {
    const nombres = [...new Set(grupo.map(p => p.fuente))].join(', ');
    return crear('li', {value: grupo[0].orden + 1, class: 'sinnada'}, crear('details', {},
        crear('summary', {}, `Sin nada: ${nombres}`), crear('ol', {}, grupo.map(paso))));
}

// The chain's discounts, each as what it leaves of the base price.
function cascadaDe(explicacion) {
    const escalones = explicacion.map((p, orden) => ({...p, orden})).filter(p => p.fuente === 'Descuento de cadena' && p.antes !== null);
    if (escalones.length === 0) return null;
    const base = escalones[0].antes;
    return crear('table', {class: 'cascada'}, crear('caption', {}, 'Los descuentos de la cadena, uno tras otro'),
        crear('thead', {}, crear('tr', {}, ['Escalón', 'Lo que queda', 'Precio'].map(rotulo => crear('th', {scope: 'col'}, rotulo)))),
        crear('tbody', {}, fila('Precio base', base, base, base, 'explicacion.' + escalones[0].orden + '.antes'),
            escalones.map(p => fila(conComas(p.clave), p.antes, p.despues, base, `explicacion.${p.orden}.despues`))));
}

// What is left, full; what this step takes off, hatched.
function fila(rotulo, antes, despues, base, dato) {
    const ancho = valor => Math.max(0, Math.min(100, base > 0 ? 100 * valor / base : 0));
    const barra = dibujar('svg', {viewBox: '0 0 100 10', preserveAspectRatio: 'none', 'aria-hidden': 'true'},
        dibujar('rect', {class: 'queda', width: ancho(despues), height: 10}),
        dibujar('rect', {class: 'quita', x: ancho(despues), width: Math.max(0, ancho(antes) - ancho(despues)), height: 10}));
    return crear('tr', {}, crear('th', {scope: 'row'}, rotulo), crear('td', {}, barra), crear('td', {class: 'numero', 'data-dato': dato}, importe(despues)));
}
