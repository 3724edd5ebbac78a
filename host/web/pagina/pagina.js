// The page: one situation or two, what hangs on the first one, and the address that holds the whole question.

import {cantidad, crear, Fallo, importe, otroDia, preguntar, turno} from './comun.js';
import {historiaDe, unidadesDe} from './historia.js';
import {listaDe, opcionesLista} from './lista.js';
import {ENTRADAS, Situacion} from './situacion.js';

const SEGUNDA = 'b-';
const APARTADOS = ['historia', 'unidades', 'lista'];
const ANTES = 60, DESPUES = 365;
const $ = selector => document.querySelector(selector);

let sesion, primera, segunda = null, ronda = 0;
const turnos = Object.fromEntries(APARTADOS.map(nombre => [nombre, turno()]));

const apartado = nombre => document.getElementById(nombre);
const otro = nombre => $(`[name=${nombre}]`);
const OTROS = {historiaDesde: 'historia', historiaHasta: 'historia', listaDe: 'lista'};

function direccion() {
    const parametros = new URLSearchParams(primera.pregunta());
    if (segunda) for (const [nombre, valor] of Object.entries(segunda.pregunta())) parametros.set(SEGUNDA + nombre, valor);
    const abiertos = APARTADOS.filter(nombre => apartado(nombre).open);
    if (abiertos.length > 0) parametros.set('ver', abiertos.join('.'));
    for (const nombre of Object.keys(OTROS)) if (apartado(OTROS[nombre]).open) parametros.set(nombre, otro(nombre).value);
    return `?${parametros}`;
}

function cambio(seguida = false) {
    const nueva = direccion();
    if (nueva !== location.search) history[seguida ? 'replaceState' : 'pushState'](null, '', nueva);
    return responder();
}

function leerDireccion() {
    const parametros = Object.fromEntries(new URLSearchParams(location.search));
    primera.poner(parametros);
    const suyos = Object.keys(parametros).filter(nombre => nombre.startsWith(SEGUNDA));
    ponerSegunda(suyos.length > 0 ? Object.fromEntries(suyos.map(nombre => [nombre.slice(SEGUNDA.length), parametros[nombre]])) : null);
    otro('historiaDesde').value = parametros.historiaDesde ?? otroDia(sesion.hoy, -ANTES);
    otro('historiaHasta').value = parametros.historiaHasta ?? otroDia(sesion.hoy, DESPUES);
    opcionesLista(otro('listaDe'), null, sesion, parametros.listaDe);
    const ver = (parametros.ver ?? '').split('.');
    for (const nombre of APARTADOS) apartado(nombre).open = ver.includes(nombre);
    return responder();
}

function ponerSegunda(valores) {
    if (valores && !segunda) {
        segunda = new Situacion('respuesta-b', 'La otra situación', sesion, cambio);
        $('#situaciones').append(segunda.seccion);
    } else if (!valores && segunda) {
        segunda.seccion.remove();
        segunda = null;
    }
    segunda?.poner(valores);
    $('#situaciones').classList.toggle('dos', segunda !== null);
    $('#comparar').setAttribute('aria-pressed', String(segunda !== null));
    $('#comparar').textContent = segunda ? 'Dejar de comparar' : 'Comparar con otra situación';
}

async function responder() {
    const mia = ++ronda;
    document.body.setAttribute('aria-busy', 'true');
    await Promise.all([primera.responder(), segunda?.responder()]);
    if (mia !== ronda) return;
    document.title = primera.documento ? `${primera.documento.descripcion}: ${primera.documento.precio ? importe(primera.documento.precio) : 'sin precio'}` : 'Simulador de precios';
    compararSituaciones();
    opcionesLista(otro('listaDe'), primera.documento, sesion, apartado('lista').open && otro('listaDe').value);
    history.replaceState(null, '', direccion());
    await Promise.all(APARTADOS.map(llenar));
    if (mia === ronda) document.body.setAttribute('aria-busy', 'false');
}

// What is not the same in both is marked, for the eye and for the ear.
function compararSituaciones() {
    document.querySelectorAll('.distinto').forEach(elemento => elemento.classList.remove('distinto'));
    document.querySelectorAll('.marca').forEach(elemento => elemento.remove());
    $('#diferencia').textContent = '';
    if (!segunda) return;
    for (const nombre of ENTRADAS)
        if (primera.valores[nombre] !== segunda.valores[nombre]) marcar(segunda.formulario.elements[nombre].closest('label').querySelector('span'));
    const a = primera.documento, b = segunda.documento;
    if (!a || !b) return;
    for (const elemento of segunda.caja.querySelectorAll('.precio [data-dato], dl [data-dato], .estado')) {
        const par = primera.caja.querySelector(elemento.dataset.dato ? `[data-dato="${elemento.dataset.dato}"]` : '.estado');
        if (elemento.textContent !== par?.textContent) marcar(elemento);
    }
    $('#diferencia').textContent = diferencia(a.neto, b.neto);
}

function marcar(elemento) {
    elemento.classList.add('distinto');
    elemento.append(crear('span', {class: 'marca'}, crear('span', {class: 'oculto'}, ' (distinto)'), crear('span', {'aria-hidden': 'true'}, ' ≠')));
}

function diferencia(uno, otro) {
    if (!uno || !otro) return '';
    const resta = Math.round((otro - uno) * 1e4) / 1e4;
    if (resta === 0) return 'El neto es el mismo.';
    const parte = cantidad(Math.round(Math.abs(resta) / uno * 1000) / 10);
    return `En la otra situación el neto es ${importe(Math.abs(resta))} ${resta > 0 ? 'más' : 'menos'} (${parte} %).`;
}

// Fills a section that is open; the others wait until someone opens them.
function llenar(nombre) {
    const caja = apartado(nombre).querySelector('.contenido');
    return turnos[nombre](async senal => {
        if (!apartado(nombre).open) return;
        if (!primera.documento) return caja.replaceChildren(crear('p', {class: 'vacio'}, 'Falta una pregunta con respuesta.'));
        try {
            caja.replaceChildren(...await contenido(nombre, senal));
        } catch (error) {
            if (!(error instanceof Fallo)) throw error;
            caja.replaceChildren(crear('p', {class: 'fallo'}, error.message));
        }
    });
}

function contenido(nombre, senal) {
    const pregunta = primera.pregunta();
    if (nombre === 'historia') return historiaDe(pregunta, otro('historiaDesde').value, otro('historiaHasta').value, sesion.hoy, senal);
    if (nombre === 'unidades') return unidadesDe(pregunta, senal);
    return listaDe(pregunta, otro('listaDe').value, sesion, senal);
}

function presentar() {
    $('#lugar').textContent = [sesion.nombre, sesion.base ?? 'servidor', `hoy es ${sesion.hoy.split('-').reverse().join('/')}`].join(' · ');
    $('#limites').textContent = `Solo se lee: nada de lo que se pregunta aquí cambia la base. ` +
        `Al buscar se ofrecen los primeros hallados y se dice cuántos hay.` +
        (sesion.conCoste ? '' : ' Los costes no se muestran.') +
        (sesion.odbc ? ' La base está en un servidor: cada respuesta tarda lo que él tarda, y la de las unidades pregunta muchas veces.' : '');
}

async function empezar() {
    sesion = await preguntar('sesion', {});
    presentar();
    primera = new Situacion('respuesta', 'La pregunta', sesion, cambio);
    $('#situaciones').append(primera.seccion);
    $('#comparar').addEventListener('click', () => {
        ponerSegunda(segunda ? null : primera.pregunta());
        cambio();
        segunda?.formulario.elements.cliente.focus();
    });
    for (const nombre of Object.keys(OTROS)) otro(nombre).addEventListener('change', () => cambio());
    for (const nombre of APARTADOS) apartado(nombre).addEventListener('toggle', () => direccion() === location.search || cambio());
    addEventListener('popstate', leerDireccion);
    await leerDireccion();
    if (!primera.valores.articulo) primera.formulario.elements.articulo.focus();
}

empezar().catch(error => $('main').prepend(crear('p', {class: 'fallo'}, error.message)));
