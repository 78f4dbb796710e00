// What lint asks of the page's script and of the tests beside it.
import js from '@eslint/js';
import html from 'eslint-plugin-html';
import globals from 'globals';

// The page's own names, which functions that a test hands to the browser may use.
const pageNames = ['act', 'all', 'busy', 'byId', 'connected', 'controlDirty', 'controlInvalid', 'controlPending',
  'controlSaving', 'durationDirty', 'firstState', 'openTab', 'poll', 'recordingKey', 'say'];

export default [
  js.configs.recommended,
  { linterOptions: { reportUnusedDisableDirectives: 'error' } },
  {
    files: ['**/*.html'],
    plugins: { html },
    languageOptions: { sourceType: 'script', globals: globals.browser },
  },
  {
    files: ['**/*.js'],
    languageOptions: {
      globals: {
        ...globals.node, ...globals.browser,
        ...Object.fromEntries(pageNames.map((name) => [name, 'readonly'])),
      },
    },
  },
];
