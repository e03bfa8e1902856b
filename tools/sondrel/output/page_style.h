// The style sheet of the page, which needs nothing from outside.
#pragma once

#include <string_view>

namespace tool {

inline constexpr std::string_view PageStyle = R"css(
:root { color-scheme: light dark;
  --ground: #f6f6f3; --card: #ffffff; --ink: #1d2126; --quiet: #59616b; --rule: #dcdeda;
  --line: #1f6fb2; --area: #1f6fb222; --track: #e6e8e4; --bad: #b3261e; --warning: #8a5200; }
@media (prefers-color-scheme: dark) { :root {
  --ground: #14171a; --card: #1d2125; --ink: #e7e9eb; --quiet: #9da6b0; --rule: #343a41;
  --line: #6db3f2; --area: #6db3f22b; --track: #30363d; --bad: #ff8f85; --warning: #f0b357; } }
* { box-sizing: border-box; }
body { margin: 0; background: var(--ground); color: var(--ink);
  font: 15px/1.45 system-ui, "Segoe UI", "Noto Sans", "DejaVu Sans", sans-serif; overflow-wrap: anywhere; }
header, main, footer { max-width: 96rem; margin: 0 auto; padding: 0 1.25rem; }
header { padding-top: 1.75rem; }
h1 { font-size: 1.7rem; line-height: 1.2; margin: 0 0 .3rem; }
h2 { font-size: 1.2rem; margin: 2.2rem 0 .7rem; padding-bottom: .3rem; border-bottom: 1px solid var(--rule); }
h3 { font-size: 1rem; margin: 1.4rem 0 .6rem; }
p { margin: .3rem 0; }
a { color: var(--line); text-decoration: none; }
a:hover, a:focus { text-decoration: underline; }
nav { display: flex; flex-wrap: wrap; gap: .25rem 1rem; margin: 1rem 0; font-size: .9rem; }
code { font: .86em/1.4 ui-monospace, "Cascadia Mono", "DejaVu Sans Mono", monospace; }
.quiet { color: var(--quiet); }
.bad { color: var(--bad); font-weight: 600; }
.warning { color: var(--warning); }
.cards { display: grid; grid-template-columns: repeat(auto-fill, minmax(min(100%, 15rem), 1fr)); gap: .8rem; }
.card { background: var(--card); border: 1px solid var(--rule); border-radius: 8px; margin: 0;
  padding: .7rem .8rem .6rem; display: flex; flex-direction: column; gap: .15rem; min-width: 0; }
.card .label { font-size: .9rem; }
.card .value { font-size: 1.45rem; font-weight: 600; font-variant-numeric: tabular-nums; }
.card .value .quiet { font-size: .9rem; font-weight: 400; }
.card .name { color: var(--quiet); font-size: .78rem; }
.ends { display: flex; justify-content: space-between; color: var(--quiet); font-size: .8rem;
  font-variant-numeric: tabular-nums; }
svg { display: block; width: 100%; }
.plot { display: grid; grid-template-columns: max-content 1fr; gap: .1rem .4rem; margin-top: auto; }
.plot .ends { grid-column: 2; }
.scale { display: flex; flex-direction: column; justify-content: space-between; text-align: right;
  color: var(--quiet); font-size: .75rem; line-height: 1; font-variant-numeric: tabular-nums; }
svg.curve { height: 4rem; border: solid var(--rule); border-width: 0 0 1px 1px; }
svg.bar { height: 1rem; }
svg path { vector-effect: non-scaling-stroke; fill: none; }
svg .area { fill: var(--area); }
svg .line { stroke: var(--line); stroke-width: 2; stroke-linecap: round; stroke-linejoin: round; }
svg .track { stroke: var(--track); stroke-width: 14; }
svg .fill { stroke: var(--line); stroke-width: 14; }
svg .met { stroke: var(--ink); stroke-width: 3; }
.steady { list-style: none; margin: .7rem 0 0; padding: 0; background: var(--card); border: 1px solid var(--rule);
  border-radius: 8px; }
.steady li { display: grid; grid-template-columns: minmax(0, 22rem) minmax(0, 1fr) minmax(0, 24rem); gap: 0 1rem;
  align-items: baseline; padding: .3rem .8rem; }
.steady li + li { border-top: 1px solid var(--rule); }
.steady .name, .card .name { text-align: start; }
.steady .name { color: var(--quiet); font-size: .78rem; }
.bars + .cards, .cards + .bars { margin-top: .7rem; }
details.failures { margin: .6rem 0; background: var(--card); border: 1px solid var(--rule); border-radius: 8px;
  padding: .5rem .8rem; }
details.failures summary { cursor: pointer; }
details.failures li { margin: .5rem 0; }
.bars { display: grid; grid-template-columns: max-content 1fr max-content; gap: .5rem .9rem; align-items: center;
  background: var(--card); border: 1px solid var(--rule); border-radius: 8px; padding: .9rem; }
.bars .number { text-align: right; font-variant-numeric: tabular-nums; }
table { width: 100%; border-collapse: collapse; }
th, td { text-align: left; vertical-align: top; padding: .38rem .7rem .38rem 0; border-top: 1px solid var(--rule); }
tbody tr:first-child > * { border-top: 0; }
table.readings { background: var(--card); border: 1px solid var(--rule); border-radius: 8px;
  border-collapse: separate; border-spacing: 0; table-layout: fixed; }
table.readings > tbody > tr > * { padding-left: .8rem; }
table.readings th { font-weight: 400; width: 21rem; }
table.readings td.about { width: 32rem; font-size: .88rem; }
table.inner { font-size: .9rem; }
table.inner th { color: var(--quiet); font-weight: 600; }
table.inner thead th { border-top: 0; }
.wide { overflow-x: auto; }
.wide th, .wide td { overflow-wrap: normal; }
ul, dl { margin: 0; padding-left: 1.1rem; }
dl { padding: 0; display: grid; grid-template-columns: max-content 1fr; gap: .15rem 1rem; }
dt { color: var(--quiet); }
dd { margin: 0; min-width: 0; }
footer { margin-top: 2.5rem; padding-bottom: 2rem; color: var(--quiet); font-size: .85rem; }
@media (max-width: 72rem) {
  table.readings > tbody > tr { display: grid; grid-template-columns: minmax(0, 37%) minmax(0, 1fr);
    border-top: 1px solid var(--rule); }
  table.readings > tbody > tr:first-child { border-top: 0; }
  table.readings > tbody > tr > * { border-top: 0; width: auto; }
  table.readings > tbody > tr > td:nth-child(2) { grid-row: span 2; }
  table.readings > tbody > tr > td.about { grid-row: 2; grid-column: 1; padding-top: 0; width: auto; }
  .steady li { grid-template-columns: minmax(0, 1fr) minmax(0, 1fr); }
  .steady .name { grid-column: 1 / -1; }
}
@media (max-width: 40rem) {
  header, main, footer { padding-left: .9rem; padding-right: .9rem; }
  .cards { grid-template-columns: repeat(auto-fill, minmax(min(100%, 9rem), 1fr)); gap: .6rem; }
  .card { padding: .55rem .6rem; }
  .card .value { font-size: 1.2rem; }
  svg.curve { height: 2.75rem; }
  table.readings, table.readings > tbody, table.readings > tbody > tr, table.readings > tbody > tr > * {
    display: block; width: 100%; }
  table.readings > tbody > tr > th { padding-bottom: 0; width: 100%; }
  table.readings > tbody > tr > td:nth-child(2) { font-weight: 500; padding-bottom: 0; }
  table.readings > tbody > tr > td.about { padding-top: 0; width: 100%; }
}
@media print { body { background: none; } nav { display: none; } .card, .bars, tr { break-inside: avoid; } }
)css";

} // namespace tool
